#include "SkinKit/Formats/PlaylistStyleParser.h"

#include "SkinKit/Base/Encodings.h"
#include "SkinKit/Base/TextLines.h"
#include "SkinKit/Formats/IniParser.h"

#include <algorithm>
#include <optional>

namespace SkinKit::PlaylistStyleParser {
namespace {

struct ColorKey {
    std::string_view key;
    RGBColor PlaylistStyle::* field;
};
// clang-format off
constexpr ColorKey colorKeys[] = {
    {"normal",     &PlaylistStyle::normal},
    {"current",    &PlaylistStyle::current},
    {"normalbg",   &PlaylistStyle::normalBackground},
    {"selectedbg", &PlaylistStyle::selectedBackground},
};
// clang-format on

std::string_view trimmedBlanks(std::string_view text)
{
    constexpr std::string_view blanks = " \t";
    const auto begin = text.find_first_not_of(blanks);
    if (begin == text.npos)
        return {};
    return text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
}

// Six hexadecimal digits behind an optional "#"; what follows them is ignored.
std::optional<RGBColor> hexColor(std::string_view text)
{
    constexpr std::size_t digitCount = 6;
    text = trimmedBlanks(text);
    if (text.starts_with('#'))
        text.remove_prefix(1);
    const auto digits = text.substr(0, digitCount);
    const auto value = digits.size() == digitCount ? Hex::parse(digits) : std::nullopt;
    return value ? std::optional(rgb(*value)) : std::nullopt;
}

}

Result parse(ByteView bytes, LoadMeter& meter)
{
    Result result;
    LoadMeter::Scratch memory(meter);
    const auto sections = IniParser::parse(textOf(bytes, memory), memory);
    const auto section = sections.find("text");
    if (section == sections.end())
        return result;

    for (const auto& [key, field] : colorKeys) {
        const auto property = section->second.find(key);
        if (property == section->second.end())
            continue;
        const std::string& value = property->second;
        if (const auto color = hexColor(value)) {
            result.style.*field = *color;
        } else {
            memory.keep(std::ssize(value));
            result.fallbacks.push_back("pledit.txt " + std::string(key) + " '" + value +
                                       "' unusable; default");
        }
    }

    const auto font = section->second.find("font");
    if (font != section->second.end() && !trimmedBlanks(font->second).empty()) {
        memory.keep(std::ssize(font->second));
        result.style.font = trimmedBlanks(font->second);
    }
    return result;
}

Result parse(std::string_view text)
{
    LoadMeter meter;
    return parse(asBytes(text), meter);
}

}
