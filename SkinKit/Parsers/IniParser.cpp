#include "SkinKit/Parsers/IniParser.h"

#include "SkinKit/Parsers/TextLines.h"
#include "SkinKit/Platform/Unicode.h"

#include <optional>

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

// No text has more sections, or a section more keys; later new ones are passed over.
constexpr std::size_t mostNames = 65'536;

void readProperty(std::string_view line, Section& section)
{
    line = Unicode::trimmedFront(line);
    if (line.empty() || line.front() == ';')
        return;
    // A key has at least one character, so an "=" right at the front is its first.
    const auto equals = line.find('=', 1);
    if (equals == line.npos)
        return;
    const auto key = Unicode::lowercased(Unicode::trimmed(line.substr(0, equals)));
    if (section.size() >= mostNames && !section.contains(key))
        return;
    section.insert_or_assign(key,
                             std::string(withoutQuotes(Unicode::trimmed(line.substr(equals + 1)))));
}

}

Sections parse(std::string_view text)
{
    Sections sections;
    Section* current = nullptr;
    for (auto line = takeLine(text); !line.empty(); line = takeLine(text)) {
        if (const auto name = sectionName(line)) {
            if (sections.size() >= mostNames && !sections.contains(*name)) {
                current = nullptr;
                continue;
            }
            current = &sections[*name];
            current->clear();
        } else if (current) {
            readProperty(line, *current);
        }
    }
    return sections;
}

}
