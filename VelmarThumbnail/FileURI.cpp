#include "VelmarThumbnail/FileURI.h"

#include "SkinKit/Base/Encodings.h"

#include <algorithm>
#include <string>

namespace VelmarThumbnail::FileURI {
namespace {

constexpr std::string_view scheme = "file:";
constexpr std::string_view host = "localhost";

bool beginsWith(std::string_view text, std::string_view lowerCase)
{
    const auto matches = [](char ours, char theirs) {
        return (ours >= 'A' && ours <= 'Z' ? ours - 'A' + 'a' : ours) == theirs;
    };
    return text.size() >= lowerCase.size() &&
           std::ranges::equal(text.substr(0, lowerCase.size()), lowerCase, matches);
}

// The byte that "%41" stands for. No path has a zero byte.
std::optional<char> unescaped(std::string_view escape)
{
    if (escape.size() < 3)
        return std::nullopt;
    const auto byte = SkinKit::Hex::parse(escape.substr(1, 2));
    return byte && *byte != 0 ? std::optional(static_cast<char>(*byte)) : std::nullopt;
}

}

bool isFileURI(std::string_view name)
{
    return beginsWith(name, scheme);
}

std::optional<std::filesystem::path> path(std::string_view uri)
{
    std::string_view rest = uri;
    if (!isFileURI(uri))
        return std::nullopt;
    rest.remove_prefix(scheme.size());
    if (rest.starts_with("//")) {
        rest.remove_prefix(2);
        if (beginsWith(rest, host))
            rest.remove_prefix(host.size());
    }
    // A query or a fragment names no file; in a name both marks are escaped.
    if (!rest.starts_with('/') || rest.find_first_of(std::string_view("?#\0", 3)) != rest.npos)
        return std::nullopt;

    std::string path;
    while (!rest.empty()) {
        const bool isEscape = rest.front() == '%';
        const auto byte = isEscape ? unescaped(rest) : rest.front();
        if (!byte)
            return std::nullopt;
        path += *byte;
        rest.remove_prefix(isEscape ? 3 : 1);
    }
    return path;
}

}
