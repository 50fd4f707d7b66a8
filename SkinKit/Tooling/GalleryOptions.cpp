#include "SkinKit/Tooling/GalleryOptions.h"

#include "SkinKit/Tooling/CommandLine.h"

namespace SkinKit {
namespace {

using Form = CommandLine<GalleryOptions>;

// clang-format off
constexpr Form::Value values[] = {
    {"--out",   takeText<&GalleryOptions::out>,    "--out needs a folder"},
    {"--scale", takeCount<&GalleryOptions::scale>, "--scale needs an integer of 1 or more"},
};
constexpr Form::Required required[] = {
    {"",      "missing <dir>"},
    {"--out", "missing --out <dir>"},
};
// clang-format on

}

const std::string_view GalleryOptions::usage =
    "usage: skintool gallery <dir> --out <dir> [--scale N]";

std::expected<GalleryOptions, GalleryOptions::UsageError>
GalleryOptions::parse(std::span<const std::string> arguments)
{
    return Form{{}, values, "only one <dir> is accepted", required}.parse(arguments);
}

}
