#include "VelmarThumbnail/FileURI.h"
#include "fuzz/Fuzzing.h"

// The input is a name, a URI or not.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto path = VelmarThumbnail::FileURI::path(SkinKit::asText({data, size}));
    if (path)
        fuzzing::require(path->is_absolute() && path->native().size() < size &&
                         path->native().find('\0') == std::string::npos);
    return 0;
}
