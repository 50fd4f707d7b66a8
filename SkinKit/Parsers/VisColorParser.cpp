#include "SkinKit/Parsers/VisColorParser.h"

#include "SkinKit/Parsers/TextLines.h"
#include "SkinKit/Platform/Unicode.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace SkinKit::VisColorParser {
namespace {

// Digits of any script count as digits. Kept as code points, since a run may have to be cut.
using Digits = std::u32string;

Digits takeDigits(std::string_view& text)
{
    Digits digits;
    while (!text.empty()) {
        std::string_view rest = text;
        const char32_t codePoint = Unicode::takeFirst(rest);
        if (!Unicode::isDigit(codePoint))
            break;
        digits += codePoint;
        text = rest;
    }
    return digits;
}

// White space, at most one comma, white space.
void skipSeparator(std::string_view& text)
{
    text = Unicode::trimmedFront(text);
    if (text.starts_with(','))
        text = Unicode::trimmedFront(text.substr(1));
}

// What the expression \s*(\d+)\s*,?\s*(\d+)\s*,?\s*(\d+) captures at the start of a line. Nothing
// need stand between two numbers, so where fewer than three runs of digits follow each other, the
// later numbers take a digit each from the end of a run, the last number first: "123" reads 1, 2, 3
// and "12 34" reads 12, 3, 4.
std::optional<std::array<Digits, 3>> threeNumbers(std::string_view line)
{
    line = Unicode::trimmedFront(line);
    const Digits first = takeDigits(line);
    skipSeparator(line);
    const Digits second = takeDigits(line);
    skipSeparator(line);
    const Digits third = takeDigits(line);

    const auto allBut = [](const Digits& digits, std::size_t count) {
        return digits.substr(0, digits.size() - count);
    };
    const auto fromEnd = [](const Digits& digits, std::size_t place) {
        return digits.substr(digits.size() - place, 1);
    };
    if (!first.empty() && !second.empty() && !third.empty())
        return {
            {first, second, third}
        };
    if (!first.empty() && second.size() >= 2)
        return {
            {first, allBut(second, 1), fromEnd(second, 1)}
        };
    if (first.size() >= 2 && !second.empty())
        return {
            {allBut(first, 1), fromEnd(first, 1), second}
        };
    if (first.size() >= 3)
        return {
            {allBut(first, 2), fromEnd(first, 2), fromEnd(first, 1)}
        };
    return std::nullopt;
}

// At most 255, which digits that are not ASCII also count as.
std::uint8_t channel(const Digits& digits)
{
    unsigned value = 0;
    for (const char32_t digit : digits) {
        if (digit > U'9')
            return 255;
        value = std::min(255U, value * 10 + static_cast<unsigned>(digit - U'0'));
    }
    return static_cast<std::uint8_t>(value);
}

}

Result parseCounted(std::string_view text)
{
    Result result{defaults, 0};
    while (result.parsedCount < colorCount) {
        const auto line = takeLine(text);
        if (line.empty())
            break;
        const auto numbers = threeNumbers(line);
        if (!numbers)
            continue;
        result.colors[static_cast<std::size_t>(result.parsedCount++)] = {
            channel((*numbers)[0]), channel((*numbers)[1]), channel((*numbers)[2])};
    }
    return result;
}

Result parseCounted(ByteView bytes)
{
    return parseCounted(Unicode::repaired(bytes));
}

}
