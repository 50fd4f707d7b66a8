#include "VelmarThumbnail/FileURI.h"
#include "fuzz/Fuzzing.h"

// The input is a name, a URI or not.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    namespace FileURI = VelmarThumbnail::FileURI;
    const std::string_view name = SkinKit::asText({data, size});
    const auto path = FileURI::path(name);
    fuzzing::require(!path || (FileURI::isFileURI(name) && path->is_absolute() &&
                               path->native().size() < size && !path->native().contains('\0')));
    return 0;
}
