#include "skintool/Commands.h"

#include "SkinKit/Graphics/ImageDiff.h"
#include "SkinKit/Graphics/PNGWriter.h"
#include "SkinKit/Tooling/CommandLine/OutputCheck.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "skintool/Skins.h"

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

Image render(const Skin& skin, const SkintoolOptions& options)
{
    const auto state = options.state == SkintoolOptions::State::idle
                           ? MainWindowState::idle()
                           : MainWindowState::webampScreenshot();
    return MainWindowRenderer::render(skin, state, static_cast<int>(options.scale),
                                      Pictures::clip(options.noRegion));
}

std::filesystem::path referencePath(const SkintoolOptions& options)
{
    return std::filesystem::path(*options.compare) / (skinName(options.input) + ".png");
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

// The answer, and the marked picture beside the output where there is a difference to see. One left
// there by an earlier run would pass for this one's.
ExitStatus compare(const Image& image, const Image& reference, const SkintoolOptions& options)
{
    const auto result = ImageDiff::compare(image, reference);
    tellCounters(result);
    if (result.compared == 0) {
        Console::sayError(referencePath(options).string(), "no pixel to compare");
        return trouble;
    }
    const auto marked = markedPath(*options.png);
    if (result.differing == 0) {
        std::error_code ignored;
        std::filesystem::remove(marked, ignored);
        return done;
    }
    const auto status = Pictures::write(ImageDiff::diffImage(image, reference), marked);
    return status == done ? answerIsNo : status;
}

// Why the files named can't be used together, before any is written; nothing when they can.
std::optional<OutputCheck::Conflict> conflict(const SkintoolOptions& options)
{
    const OutputCheck::Input skin = OutputCheck::skin(options.input);
    if (!options.compare)
        return OutputCheck::find({skin}, {*options.png});

    std::error_code ignored;
    const bool isInPlace = options.png->starts_with("/dev/") ||
                           (std::filesystem::exists(*options.png, ignored) &&
                            !std::filesystem::is_regular_file(*options.png, ignored));
    if (isInPlace)
        return OutputCheck::Conflict{*options.png,
                                     "--compare needs a file to put the marked picture beside"};
    return OutputCheck::find(
        {
            skin, {referencePath(options), "the reference picture"}
    },
        {*options.png, markedPath(*options.png)});
}

ExitStatus renderAndCompare(const Skin& skin, const SkintoolOptions& options)
{
    if (const auto found = conflict(options)) {
        Console::sayError(found->output.string(), found->text);
        return trouble;
    }
    const Image image = render(skin, options);
    const auto status = Pictures::write(image, *options.png);
    if (status != done || !options.compare)
        return status;

    const auto reference = PNGWriter::read(referencePath(options));
    if (!reference) {
        Console::sayError(referencePath(options).string(), "no readable reference picture");
        return trouble;
    }
    return compare(image, *reference, options);
}

}

const std::string_view help = R"(Examples:
  skintool some.wsz                            what a skin is, in a line
  skintool -v some.wsz                         and everything the loader noticed
  skintool --png out.png some.wsz              its main window as a picture
  skintool --png out.png --scale 2 folder/     twice as large, from an unpacked skin
  skintool --png out.png --compare refs a.wsz  and how it differs from refs/a.png
  skintool info some.wsz                       everything about a skin
  skintool windows some.wsz --out pictures     all its windows as pictures
  skintool preview some.wsz                    a page that shows it in any browser
  skintool gallery skins --out page            a page of all skins of a folder
  skintool corpus skins --out run1             every skin of a collection, tried

Options:
  -v, --verbose         print the loader's warnings and fallbacks
  --png <out>           write the main window as a PNG file
  --state webamp|idle   a playing player (the default) or one just started
  --scale N             N device pixels for each of the 275 x 116 (default 1)
  --compare <refdir>    compare with <refdir>/<skin's name>.png; needs scale 1, and
                        writes out.diff.png beside out.png where they differ
  --no-region           the whole rectangle, not the shape that the skin cuts
  -h, --help            this text
  --version             the version

A name that begins with "-" is written "./-name". A picture takes about three times
its pixels in memory: 4 bytes each, 275 x 116 of them times the scale squared.

Exit status: 0 done; 1 the pictures differ; 2 trouble.)";

ExitStatus run(const SkintoolOptions& options)
{
    if (options.png && !Pictures::canWrite(MainWindowRenderer::size({}, options.scale)))
        return Pictures::sayScaleIsTooLarge(options.scale);
    const auto loaded = loadOrSayWhyNot(options.input, SkinParser::Sheets::croppedToSprites);
    if (!loaded)
        return trouble;
    const auto& [info, skin] = *loaded;
    // Beside a picture, which may itself go to standard output, the notes are talk; without one
    // they are what was asked for.
    if (!options.png)
        Console::print(Console::visible(options.input) + ": " + info.summary());
    if (options.verbose)
        tellNotes(skin, options.png ? Console::say : Console::print);
    return options.png ? renderAndCompare(skin, options) : done;
}

}
