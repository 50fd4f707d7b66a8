#include "skintool/Skins.h"

#include "SkinKit/Graphics/PNGWriter.h"
#include "SkinKit/System/Files.h"

#include <system_error>
#include <utility>

namespace skintool {

using namespace SkinKit;

void sayUnreadableFiles(const SkinArchive& archive)
{
    const auto say = [](std::int64_t count, const std::string& what) {
        if (count > 0)
            Console::say("skintool: files left out because they are " + what + ": " +
                         std::to_string(count));
    };
    say(archive.unreadable().encrypted, "encrypted");
    say(archive.unreadable().otherMethod, "compressed by another method than deflate");
}

std::optional<LoadedSkin> loadOrSayWhyNot(const std::string& input, SkinParser::Sheets sheets)
{
    const auto archive = SkinArchive::open(std::filesystem::path(input));
    auto skin = archive ? SkinParser::parse(*archive, sheets) : std::unexpected(archive.error());
    if (!skin)
        Console::sayError(input, skin.error().description());
    if (archive)
        sayUnreadableFiles(*archive);
    if (!skin)
        return std::nullopt;
    auto info = SkinInfo::of(input, *archive, *skin);
    return LoadedSkin{std::move(info), std::move(*skin)};
}

std::string skinName(const std::filesystem::path& input)
{
    std::error_code ignored;
    const auto path = Files::named(input);
    const bool isFolder = std::filesystem::is_directory(path, ignored);
    return (isFolder ? path.filename() : path.stem()).string();
}

namespace Pictures {

bool canWrite(std::optional<Size> size)
{
    return size && size->width <= PNGWriter::maxSide && size->height <= PNGWriter::maxSide;
}

ExitStatus sayScaleIsTooLarge(std::int64_t scale)
{
    Console::sayError("--scale " + std::to_string(scale) + " is too large");
    return trouble;
}

Clip clip(bool noRegion)
{
    return noRegion ? Clip::none : Clip::toRegion;
}

ExitStatus write(const Image& image, const std::filesystem::path& path)
{
    if (const auto error = PNGWriter::write(image, path)) {
        Console::sayError(path.string(), error.message());
        return trouble;
    }
    return done;
}

}

}
