#include "SkinKit/Formats/IniParser.h"

#include "SkinKit/Base/TextLines.h"
#include "SkinKit/Base/Unicode.h"

#include <cstdint>
#include <iterator>
#include <optional>
#include <utility>

namespace SkinKit::IniParser {
namespace {

bool isQuote(char c)
{
    return c == '"' || c == '\'';
}

std::string_view withoutQuotes(std::string_view value)
{
    if (!value.empty() && isQuote(value.front()))
        value.remove_prefix(1);
    if (!value.empty() && isQuote(value.back()))
        value.remove_suffix(1);
    return value;
}

// The name in "[name]"; one space between the brackets is an empty name, none is no header.
std::optional<std::string> sectionName(std::string_view line)
{
    const auto trimmed = Unicode::trimmed(line);
    if (trimmed.size() < 3 || trimmed.front() != '[' || trimmed.back() != ']')
        return std::nullopt;
    return Unicode::lowercased(Unicode::trimmed(trimmed.substr(1, trimmed.size() - 2)));
}

// What a text takes on the heap, and what a map's node takes beside its texts.
std::int64_t heapBytes(std::string_view text)
{
    constexpr std::int64_t ownBytes = 32;
    return std::ssize(text) + ownBytes;
}
constexpr std::int64_t sectionBytes = sizeof(Sections::value_type) + 48;
constexpr std::int64_t propertyBytes = sizeof(Section::value_type) + 48;

void readProperty(std::string_view line, Section& section, LoadMeter::Scratch& memory)
{
    line = Unicode::trimmedFront(line);
    if (line.empty() || line.front() == ';')
        return;
    // A key has at least one character, so an "=" right at the front is its first.
    const auto equals = line.find('=', 1);
    if (equals == line.npos)
        return;
    auto key = Unicode::lowercased(Unicode::trimmed(line.substr(0, equals)));
    const auto value = withoutQuotes(Unicode::trimmed(line.substr(equals + 1)));
    if (memory.take(propertyBytes + heapBytes(key) + heapBytes(value)))
        section.insert_or_assign(std::move(key), std::string(value));
}

}

Sections parse(std::string_view text, LoadMeter::Scratch& memory)
{
    Sections sections;
    Section* current = nullptr;
    for (auto line = takeLine(text); !line.empty(); line = takeLine(text)) {
        if (!memory.meter.hasTimeAfter(std::ssize(line)))
            break;
        if (auto name = sectionName(line)) {
            current = memory.take(sectionBytes + heapBytes(*name)) ? &sections[std::move(*name)]
                                                                   : nullptr;
            if (current)
                current->clear();
        } else if (current) {
            readProperty(line, *current, memory);
        }
    }
    return sections;
}

Sections parse(std::string_view text)
{
    LoadMeter meter;
    LoadMeter::Scratch memory(meter);
    return parse(text, memory);
}

}
