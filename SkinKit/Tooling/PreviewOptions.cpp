#include "SkinKit/Tooling/PreviewOptions.h"

#include "SkinKit/Tooling/CommandLine.h"

namespace SkinKit {
namespace {

using Form = CommandLine<PreviewOptions>;

constexpr Form::Flag flags[] = {
    {"--mhtml", &PreviewOptions::mhtml},
};
constexpr Form::Value values[] = {
    {"--out", takeText<&PreviewOptions::out>, "--out needs an output path"},
};
constexpr Form::Required required[] = {
    {"", "missing <skin.wsz | folder>"},
};

}

const std::string_view PreviewOptions::usage =
    "usage: skintool preview <skin.wsz | folder> [--out <file>] [--mhtml]";

std::expected<PreviewOptions, PreviewOptions::UsageError>
PreviewOptions::parse(std::span<const std::string> arguments)
{
    return Form{flags, values, "only one <skin.wsz | folder> is accepted", required, "-"}.parse(
        arguments);
}

}
