#include "SkinKit/Tooling/WindowsOptions.h"

#include "SkinKit/Tooling/CommandLine.h"

namespace SkinKit {
namespace {

using Form = CommandLine<WindowsOptions>;

bool takeState(WindowsOptions& options, const std::string& text)
{
    const auto state = SkintoolOptions::parseState(text);
    options.state = state.value_or(options.state);
    return state.has_value();
}

// clang-format off
constexpr Form::Flag flags[] = {
    {"--no-region", &WindowsOptions::noRegion},
};
constexpr Form::Value values[] = {
    {"--out",   takeText<&WindowsOptions::out>,    "--out needs a folder"},
    {"--scale", takeCount<&WindowsOptions::scale>, "--scale needs an integer of 1 or more"},
    {"--state", takeState,                         "--state must be webamp or idle"},
};
constexpr Form::Required required[] = {
    {"",      "missing <skin.wsz | folder>"},
    {"--out", "missing --out <dir>"},
};
// clang-format on

}

const std::string_view WindowsOptions::usage =
    "usage: skintool windows <skin.wsz | folder> --out <dir> [--scale N] [--state webamp|idle] "
    "[--no-region]";

std::expected<WindowsOptions, WindowsOptions::UsageError>
WindowsOptions::parse(std::span<const std::string> arguments)
{
    return Form{flags, values, "only one <skin.wsz | folder> is accepted", required, "-"}.parse(
        arguments);
}

}
