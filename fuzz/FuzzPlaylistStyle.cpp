#include "SkinKit/Formats/PlaylistStyleParser.h"
#include "fuzz/Fuzzing.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

namespace {

using namespace SkinKit;

std::string hex(RGBColor color)
{
    char text[8];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", color.red, color.green, color.blue);
    return text;
}

bool isKnown(std::string_view note)
{
    constexpr std::array keys{"normal", "current", "normalbg", "selectedbg"};
    return note.ends_with("' unusable; default") && std::ranges::any_of(keys, [&](const char* key) {
               return note.starts_with("pledit.txt " + std::string(key) + " '");
           });
}

}

// A playlist's style. What was read is written and read again.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto [style, notes] = PlaylistStyleParser::parse(asText({data, size}));
    fuzzing::require(!style.font.empty() && notes.size() <= 4);
    fuzzing::require(std::ranges::all_of(notes, isKnown));

    const auto again = PlaylistStyleParser::parse(
        "[Text]\nNormal=" + hex(style.normal) + "\nCurrent=" + hex(style.current) +
        "\nNormalBG=" + hex(style.normalBackground) +
        "\nSelectedBG=" + hex(style.selectedBackground) + "\nFont=\"" + style.font + "\"\n");
    fuzzing::require(again.style == style && again.fallbacks.empty());
    return 0;
}
