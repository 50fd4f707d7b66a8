#include "VelmarThumbnail/FileURI.h"
#include "fuzz/Fuzzing.h"

#include <string>

namespace {

// With every byte escaped.
std::string uriOf(std::string_view path)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string uri = "file:///";
    for (const std::uint8_t byte : SkinKit::asBytes(path.substr(1)))
        uri.append({'%', digits[byte >> 4], digits[byte & 15]});
    return uri;
}

}

// The input is a name, a URI or not.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    namespace FileURI = VelmarThumbnail::FileURI;
    const std::string_view name = SkinKit::asText({data, size});
    const auto path = FileURI::path(name);
    if (!path)
        return 0;
    fuzzing::require(FileURI::isFileURI(name) && path->is_absolute() &&
                     path->native().size() < size &&
                     path->native().find('\0') == std::string::npos);
    const auto again = FileURI::path(uriOf(path->native()));
    fuzzing::require(again && again->native() == path->native());
    return 0;
}
