#include "skintool/Loading.h"

#include "SkinKit/Platform/Files.h"
#include "SkinKit/SkinParser.h"
#include "skintool/Console.h"

#include <system_error>
#include <utility>

namespace skintool {

std::optional<SkinKit::SkinInfo> loadOrSayWhyNot(const std::string& input)
{
    const auto archive = SkinKit::SkinArchive::open(std::filesystem::path(input));
    auto skin = archive ? SkinKit::SkinParser::parse(*archive) : std::unexpected(archive.error());
    if (!skin) {
        Console::sayError(input, skin.error().description());
        return std::nullopt;
    }
    return SkinKit::SkinInfo::of(input, *archive, std::move(*skin));
}

std::string skinName(const std::filesystem::path& input)
{
    std::error_code ignored;
    const auto path = SkinKit::Files::named(input);
    const bool isFolder = std::filesystem::is_directory(path, ignored);
    return (isFolder ? path.filename() : path.stem()).string();
}

}
