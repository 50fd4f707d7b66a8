#include "SkinKit/Tooling/CommandLine/SkintoolOptions.h"

namespace SkinKit {
namespace {

using State = SkintoolOptions::State;

constexpr std::string_view noSkin = "missing <skin.wsz | folder>";
constexpr std::string_view manySkins = "only one <skin.wsz | folder> is accepted";
constexpr std::string_view badState = "--state must be webamp or idle";
constexpr std::string_view badScale = "--scale needs an integer of 1 or more";

template <typename Options>
bool takeState(Options& options, const std::string& text)
{
    for (const auto state : {State::webamp, State::idle})
        if (rawValue(state) == text) {
            options.state = state;
            return true;
        }
    return false;
}

std::optional<std::string> checkDrawing(SkintoolOptions& options,
                                        const CommandLine<SkintoolOptions>::Given& given)
{
    if (options.png && options.compare && options.scale != 1)
        return "--compare needs --scale 1 (the references are 1x)";
    if (!options.png)
        for (const auto* word : {"--state", "--scale", "--compare", "--no-region"})
            if (given.contains(word))
                return "--state, --scale, --compare and --no-region need --png";
    return std::nullopt;
}

}

std::string_view rawValue(SkintoolOptions::State state)
{
    return state == State::webamp ? "webamp" : "idle";
}

const std::string_view SkintoolOptions::usage =
    "usage: skintool [-v|--verbose] [--png <out> [--state webamp|idle] [--scale N] "
    "[--compare <refdir>] [--no-region]] <skin.wsz | folder>";
const std::string_view InfoOptions::usage = "usage: skintool info [--json] <skin.wsz | folder>";
const std::string_view WindowsOptions::usage =
    "usage: skintool windows <skin.wsz | folder> --out <dir> [--scale N] [--state webamp|idle] "
    "[--no-region]";
const std::string_view PreviewOptions::usage =
    "usage: skintool preview <skin.wsz | folder> [--out <file>] [--mhtml]";
const std::string_view GalleryOptions::usage =
    "usage: skintool gallery <dir> --out <dir> [--scale N]";

// clang-format off
std::expected<SkintoolOptions, UsageError>
SkintoolOptions::parse(std::span<const std::string> arguments)
{
    using Form = CommandLine<SkintoolOptions>;
    return Form{
        .operands = {{takeText<&SkintoolOptions::input>, noSkin}},
        .tooMany = manySkins,
        .reportTooMany = Form::Report::atEnd,
        .options = {
            {"-v",          takeFlag<&SkintoolOptions::verbose>},
            {"--verbose",   takeFlag<&SkintoolOptions::verbose>},
            {"--no-region", takeFlag<&SkintoolOptions::noRegion>},
            {"--png",       takeText<&SkintoolOptions::png>,     "--png needs an output path"},
            {"--compare",   takeText<&SkintoolOptions::compare>, "--compare needs a folder"},
            {"--state",     takeState,                           badState},
            {"--scale",     takeCount<&SkintoolOptions::scale>,  badScale},
        },
        .check = checkDrawing,
    }.parse(arguments);
}

std::expected<InfoOptions, UsageError> InfoOptions::parse(std::span<const std::string> arguments)
{
    using Form = CommandLine<InfoOptions>;
    return Form{
        .operands = {{takeText<&InfoOptions::input>, noSkin}},
        .tooMany = manySkins,
        .reportTooMany = Form::Report::atEnd,
        .options = {{"--json", takeFlag<&InfoOptions::json>}},
    }.parse(arguments);
}

std::expected<WindowsOptions, UsageError>
WindowsOptions::parse(std::span<const std::string> arguments)
{
    return CommandLine<WindowsOptions>{
        .operands = {{takeText<&WindowsOptions::input>, noSkin}},
        .tooMany = manySkins,
        .options = {
            {"--out",       takeText<&WindowsOptions::out>,    "--out needs a folder", "missing --out <dir>"},
            {"--scale",     takeCount<&WindowsOptions::scale>, badScale},
            {"--state",     takeState,                         badState},
            {"--no-region", takeFlag<&WindowsOptions::noRegion>},
        },
    }.parse(arguments);
}

std::expected<PreviewOptions, UsageError>
PreviewOptions::parse(std::span<const std::string> arguments)
{
    return CommandLine<PreviewOptions>{
        .operands = {{takeText<&PreviewOptions::input>, noSkin}},
        .tooMany = manySkins,
        .options = {
            {"--out",   takeText<&PreviewOptions::out>, "--out needs an output path"},
            {"--mhtml", takeFlag<&PreviewOptions::mhtml>},
        },
    }.parse(arguments);
}

std::expected<GalleryOptions, UsageError>
GalleryOptions::parse(std::span<const std::string> arguments)
{
    return CommandLine<GalleryOptions>{
        .operands = {{takeText<&GalleryOptions::input>, "missing <dir>"}},
        .tooMany = "only one <dir> is accepted",
        .options = {
            {"--out",   takeText<&GalleryOptions::out>,    "--out needs a folder", "missing --out <dir>"},
            {"--scale", takeCount<&GalleryOptions::scale>, badScale},
        },
        .optionMark = "--",
    }.parse(arguments);
}
// clang-format on

}
