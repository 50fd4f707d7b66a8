#include "skintool/RenderCommand.h"

#include "SkinKit/Rendering/ImageDiff.h"
#include "SkinKit/Rendering/MainWindowRenderer.h"
#include "SkinKit/Rendering/PNGWriter.h"
#include "SkinKit/Tooling/SkintoolOptions.h"
#include "skintool/Loading.h"

#include <optional>

namespace skintool::RenderCommand {
namespace {

using namespace SkinKit;

void tellNotes(const Skin& skin, void (*tell)(std::string_view))
{
    for (const auto& note : skin.warnings)
        tell("warning: " + Console::visible(note));
    for (const auto& note : skin.fallbacks)
        tell("fallback: " + Console::visible(note));
}

// Before anything is allocated: whether a picture at this scale could be held and written.
bool canRender(std::int64_t scale)
{
    const auto size = MainWindowRenderer::size(scale);
    return size && size->width <= PNGWriter::maxSide && size->height <= PNGWriter::maxSide;
}

Image render(const Skin& skin, const SkintoolOptions& options)
{
    const auto state = options.state == SkintoolOptions::State::idle
                           ? MainWindowState::idle()
                           : MainWindowState::webampScreenshot();
    const auto clip =
        options.noRegion ? MainWindowRenderer::Clip::none : MainWindowRenderer::Clip::toRegion;
    return MainWindowRenderer::render(skin, state, static_cast<int>(options.scale), clip);
}

ExitStatus write(const Image& image, const std::string& path)
{
    if (const auto error = PNGWriter::write(image, path)) {
        Console::sayError(path, error.message());
        return trouble;
    }
    return done;
}

// The skin's name without its extension, wherever the path leads: "." has a name too.
std::filesystem::path referencePath(const SkintoolOptions& options)
{
    std::error_code ignored;
    auto skin = std::filesystem::weakly_canonical(options.input, ignored);
    const bool isFolder = std::filesystem::is_directory(skin, ignored);
    const auto name = isFolder ? skin.filename() : skin.stem();
    return std::filesystem::path(*options.compare) / (name.string() + ".png");
}

// Beside the output: out.png → out.diff.png.
std::filesystem::path markedPath(const std::filesystem::path& output)
{
    auto marked = output;
    return marked.replace_extension(".diff.png");
}

void tellCounters(const ImageDiff::Result& result)
{
    const auto tell = [](std::string_view name, std::int64_t count) {
        Console::print(std::string(name) + ": " + std::to_string(count));
    };
    tell("compared", result.compared);
    tell("differing", result.differing);
    tell("beyondTolerance", result.beyondTolerance);
    tell("skippedTransparent", result.skippedTransparent);
    tell("differingOutsideIgnored", result.differingOutsideIgnored);
    tell("beyondToleranceOutsideIgnored", result.beyondToleranceOutsideIgnored);
}

ExitStatus compare(const Image& image, const SkintoolOptions& options)
{
    const auto path = referencePath(options);
    const auto reference = PNGWriter::read(path);
    if (!reference) {
        Console::sayError(path.string(), "no readable reference picture");
        return trouble;
    }
    const auto result = ImageDiff::compare(image, *reference);
    tellCounters(result);
    if (result.compared == 0) {
        Console::sayError(path.string(), "no pixel to compare");
        return trouble;
    }
    if (result.differing == 0)
        return done;
    const auto status =
        write(ImageDiff::diffImage(image, *reference), markedPath(*options.png).string());
    return status == done ? answerIsNo : status;
}

ExitStatus run(const SkintoolOptions& options)
{
    if (options.png && !canRender(options.scale)) {
        Console::sayError("--scale " + std::to_string(options.scale) + " is too large");
        return trouble;
    }
    const auto info = loadOrSayWhyNot(options.input);
    if (!info)
        return trouble;
    // Beside a picture, which may itself go to standard output, the notes are talk; without one
    // they are what was asked for.
    if (!options.png)
        Console::print(Console::visible(options.input) + ": " + info->summary());
    if (options.verbose)
        tellNotes(info->skin, options.png ? Console::say : Console::print);
    if (!options.png)
        return done;

    const Image image = render(info->skin, options);
    const auto status = write(image, *options.png);
    return status == done && options.compare ? compare(image, options) : status;
}

}

const std::string_view help = R"(Examples:
  skintool some.wsz                            what a skin is, in a line
  skintool -v some.wsz                         and everything the loader noticed
  skintool --png out.png some.wsz              its main window as a picture
  skintool --png out.png --scale 2 folder/     twice as large, from an unpacked skin
  skintool --png out.png --compare refs a.wsz  and how it differs from refs/a.png
  skintool info some.wsz                       everything about a skin

Options:
  -v, --verbose         print the loader's warnings and fallbacks
  --png <out>           write the main window as a PNG file
  --state webamp|idle   a playing player (the default) or one just started
  --scale N             N device pixels for each of the 275 x 116 (default 1)
  --compare <refdir>    compare with <refdir>/<skin's name>.png; needs scale 1
  --no-region           the whole rectangle, not the shape that the skin cuts
  -h, --help            this text
  --version             the version

Sub-commands (skintool <word> --help tells more):
  info                  tell everything about a skin, or print it as JSON

Exit status: 0 done; 1 the pictures differ, and out.diff.png shows where; 2 trouble.)";

ExitStatus run(std::span<const std::string> arguments)
{
    const auto options = SkintoolOptions::parse(arguments);
    if (!options)
        return Console::sayUsageError(options.error().description, SkintoolOptions::usage);
    return run(*options);
}

}
