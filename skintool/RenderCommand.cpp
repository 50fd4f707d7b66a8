#include "skintool/RenderCommand.h"

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Rendering/MainWindowRenderer.h"
#include "SkinKit/Rendering/PNGWriter.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/Tooling/RequiredSprites.h"
#include "SkinKit/Tooling/SkintoolOptions.h"

#include <optional>

namespace skintool::RenderCommand {
namespace {

using SkinKit::SkintoolOptions;

struct LoadedSkin {
    SkinKit::Skin skin;
    std::int64_t entryCount = 0;
    std::int64_t leftOutCount = 0;
};

std::expected<LoadedSkin, SkinKit::SkinError> load(const std::string& input)
{
    const auto archive = SkinKit::SkinArchive::open(std::filesystem::path(input));
    if (!archive)
        return std::unexpected(archive.error());
    auto skin = SkinKit::SkinParser::parse(*archive);
    if (!skin)
        return std::unexpected(skin.error());
    return LoadedSkin{std::move(*skin), archive->entryCount(), archive->leftOutCount()};
}

std::string summary(const LoadedSkin& loaded)
{
    const auto& skin = loaded.skin;
    const std::size_t generated = skin.generatedSheets.size();
    const std::size_t lacking = SkinKit::RequiredSprites::missing(skin).size();
    return std::to_string(skin.sheets.size() - generated) + " sheets found, " +
           std::to_string(generated) + " generated; " +
           std::to_string(loaded.entryCount - loaded.leftOutCount) + " of " +
           std::to_string(loaded.entryCount) + " entries kept; main window " +
           (lacking == 0 ? "complete"
                         : "incomplete (" + std::to_string(lacking) + " of " +
                               std::to_string(SkinKit::RequiredSprites::all().size()) +
                               " required sprites missing)");
}

void tellNotes(const SkinKit::Skin& skin, void (*tell)(std::string_view))
{
    for (const auto& note : skin.warnings)
        tell("warning: " + Console::visible(note));
    for (const auto& note : skin.fallbacks)
        tell("fallback: " + Console::visible(note));
}

// Before anything is allocated: whether a picture at this scale could be held and written.
bool canRender(std::int64_t scale)
{
    const auto size = SkinKit::MainWindowRenderer::size(scale);
    return size && size->width <= SkinKit::PNGWriter::maxSide &&
           size->height <= SkinKit::PNGWriter::maxSide;
}

ExitStatus writePicture(const SkinKit::Skin& skin, const SkintoolOptions& options)
{
    using namespace SkinKit;
    const auto state = options.state == SkintoolOptions::State::idle
                           ? MainWindowState::idle()
                           : MainWindowState::webampScreenshot();
    const auto clip =
        options.noRegion ? MainWindowRenderer::Clip::none : MainWindowRenderer::Clip::toRegion;
    const Image image =
        MainWindowRenderer::render(skin, state, static_cast<int>(options.scale), clip);
    if (const auto error = PNGWriter::write(image, *options.png)) {
        Console::sayError(*options.png, error.message());
        return trouble;
    }
    return done;
}

ExitStatus run(const SkintoolOptions& options)
{
    if (options.png && !canRender(options.scale)) {
        Console::sayError("--scale " + std::to_string(options.scale) + " is too large");
        return trouble;
    }
    const auto loaded = load(options.input);
    if (!loaded) {
        Console::sayError(options.input, loaded.error().description());
        return trouble;
    }
    // Beside a picture, which may itself go to standard output, the notes are talk; without one
    // they are what was asked for.
    if (!options.png)
        Console::print(Console::visible(options.input) + ": " + summary(*loaded));
    if (options.verbose)
        tellNotes(loaded->skin, options.png ? Console::say : Console::print);
    return options.png ? writePicture(loaded->skin, options) : done;
}

}

ExitStatus run(std::span<const std::string> arguments)
{
    const auto options = SkintoolOptions::parse(arguments);
    if (options)
        return run(*options);
    Console::sayError(options.error().description);
    Console::say(SkintoolOptions::usage);
    return trouble;
}

}
