#include "VelmarThumbnail/Thumbnailer.h"

#include "SkinKit/Graphics/PNGCodec.h"
#include "SkinKit/System/InputFile.h"
#include "SkinKit/System/OutputFile.h"
#include "SkinKit/System/Sandbox.h"
#include "SkinKit/Tooling/CommandLine/OutputCheck.h"
#include "VelmarThumbnail/ThumbnailProvider.h"

#include <array>
#include <cstdint>
#include <expected>
#include <utility>
#include <variant>

namespace VelmarThumbnail::Thumbnailer {
namespace {

using namespace SkinKit;

// An archive that is open, or the files of a folder; nothing looked into yet.
using UnopenedSkin = std::variant<Files::InputFile, SkinArchive>;

std::expected<UnopenedSkin, SkinError> reach(const std::filesystem::path& path)
{
    const auto kind = Files::kind(path);
    if (kind && *kind == Files::Kind::folder)
        return SkinArchive::open(path, ThumbnailProvider::limits());
    if (kind && *kind == Files::Kind::other)
        return std::unexpected(SkinError::unreadableArchive("Not a regular file"));
    auto file = Files::InputFile::open(path, Files::Links::followed);
    if (!file)
        return std::unexpected(SkinError::unreadableArchive(file.error().message()));
    return std::move(*file);
}

// Gives up what was reached, so that it is gone before anything is drawn.
std::expected<SkinArchive, SkinError> open(UnopenedSkin&& skin)
{
    UnopenedSkin taken = std::move(skin);
    if (auto* const folder = std::get_if<SkinArchive>(&taken))
        return std::move(*folder);
    return SkinArchive::open(std::move(std::get<Files::InputFile>(taken)),
                             ThumbnailProvider::limits());
}

std::expected<Image, std::string> thumbnail(const ThumbnailerOptions& options, UnopenedSkin&& skin)
{
    const auto side = static_cast<double>(options.size);
    std::optional<Image> image;
    std::string reason;
    const auto completion = [&](const auto& reply, const auto& error) {
        if (reply)
            image = reply->image(1);
        if (error)
            reason = error->description;
    };
    ThumbnailProvider::provideThumbnail(
        {
            .file = options.input, .maximumSize = {side, side},
                 .minimumSize = {},
                 .scale = 1
    },
        completion, [&](const std::filesystem::path&) { return open(std::move(skin)); });
    if (!image)
        return std::unexpected(reason);
    return *image;
}

// With the size of what the thumbnail stands for; the desktop adds the file's name and date.
std::optional<ByteBuffer> file(const Image& image)
{
    const std::array texts{
        PNGCodec::Text{"Thumb::Image::Width",  std::to_string(ThumbnailProvider::window.width) },
        PNGCodec::Text{"Thumb::Image::Height", std::to_string(ThumbnailProvider::window.height)},
    };
    return PNGCodec::encode(image, texts);
}

}

std::optional<Failure> run(const ThumbnailerOptions& options)
{
    auto skin = reach(options.input);
    if (!skin)
        return Failure{options.input, skin.error().description()};
    if (auto conflict = OutputCheck::find({OutputCheck::skin(options.input)}, {options.output}))
        return Failure{options.output, std::move(conflict->text)};
    auto output = Files::OutputFile::open(options.output);
    if (!output)
        return Failure{options.output, output.error().message()};

    // Goes on with the locks that the system grants, as with the limits in main.
    const auto* const archive = std::get_if<Files::InputFile>(&*skin);
    Sandbox::lockDown({.output = output->descriptor(),
                       .input = archive ? std::optional(archive->descriptor()) : std::nullopt});

    const auto image = thumbnail(options, std::move(*skin));
    if (!image)
        return Failure{options.input, image.error()};
    const auto bytes = file(*image);
    if (!bytes)
        return Failure{options.output, "could not encode PNG"};
    if (const auto error = std::move(*output).write(*bytes))
        return Failure{options.output, error.message()};
    return std::nullopt;
}

}
