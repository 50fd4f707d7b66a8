#include "SkinKit/Formats/VisColorParser.h"

#include "SkinKit/Base/TextLines.h"
#include "SkinKit/Base/Unicode.h"

#include <algorithm>
#include <optional>
#include <string>

namespace SkinKit::VisColorParser {
namespace {

// Takes the digits off the front; those of any script count. A view, since they may be as many as
// the file has bytes.
std::string_view takeDigits(std::string_view& text)
{
    const std::string_view start = text;
    for (std::string_view rest = text; !rest.empty(); text = rest)
        if (!Unicode::isDigit(Unicode::takeCodePoint(rest)))
            break;
    return start.substr(0, start.size() - text.size());
}

// Takes the last digit off, unless it is the only one.
std::string_view takeLastDigit(std::string_view& digits)
{
    const auto isContinuation = [](char byte) { return (byte & 0xC0) == 0x80; };
    std::size_t start = digits.empty() ? 0 : digits.size() - 1;
    while (start > 0 && isContinuation(digits[start]))
        --start;
    if (start == 0)
        return {};
    const auto last = digits.substr(start);
    digits = digits.substr(0, start);
    return last;
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
using Numbers = std::array<std::string_view, 3>;

std::optional<Numbers> threeNumbers(std::string_view line)
{
    line = Unicode::trimmedFront(line);
    auto first = takeDigits(line);
    skipSeparator(line);
    auto second = takeDigits(line);
    skipSeparator(line);
    const auto third = takeDigits(line);

    if (first.empty())
        return std::nullopt;
    if (!second.empty() && !third.empty())
        return Numbers{first, second, third};
    if (const auto last = takeLastDigit(second); !last.empty())
        return Numbers{first, second, last};
    const auto last = takeLastDigit(first);
    if (!last.empty() && !second.empty())
        return Numbers{first, last, second};
    const auto middle = takeLastDigit(first);
    return middle.empty() ? std::nullopt : std::optional(Numbers{first, middle, last});
}

// At most 255, which digits that are not ASCII also count as.
std::uint8_t channel(std::string_view digits)
{
    unsigned value = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9')
            return 255;
        value = std::min(255U, value * 10 + static_cast<unsigned>(digit - '0'));
    }
    return static_cast<std::uint8_t>(value);
}

}

Result parseCounted(ByteView bytes, LoadMeter& meter)
{
    LoadMeter::Scratch memory(meter);
    const std::string whole = textOf(bytes, memory);
    std::string_view text = whole;
    Result result{defaults, 0};
    while (result.parsedCount < colorCount) {
        const auto line = takeLine(text);
        if (line.empty() || !meter.hasTimeAfter(std::ssize(line)))
            break;
        const auto numbers = threeNumbers(line);
        if (!numbers)
            continue;
        result.colors[static_cast<std::size_t>(result.parsedCount++)] = {
            channel((*numbers)[0]), channel((*numbers)[1]), channel((*numbers)[2])};
    }
    return result;
}

Result parseCounted(std::string_view text)
{
    LoadMeter meter;
    return parseCounted(asBytes(text), meter);
}

}
