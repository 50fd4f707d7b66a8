#include "skintool/Loading.h"

#include "SkinKit/SkinParser.h"
#include "skintool/Console.h"

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

}
