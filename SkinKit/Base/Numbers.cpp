#include "SkinKit/Base/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace SkinKit::Numbers {
namespace {

// Room for any double in any form: 309 digits before the point.
using Room = std::array<char, 400>;

// Whether the decimal number, which is not 0, is 1 or larger: by the place of its first digit that
// is not 0, counted from the point, and the exponent.
bool isAtLeastOne(std::string_view number)
{
    const auto mantissa = number.substr(0, number.find_first_of("eE"));
    const auto point = std::min(mantissa.find('.'), mantissa.size());
    const auto first = mantissa.find_first_of("123456789");
    auto place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    if (first < point)
        --place; // 0 is the place of the ones

    if (mantissa.size() == number.size())
        return place >= 0;
    const auto digits = number.substr(mantissa.size() + 1);
    // An exponent that no integer holds outweighs any text's length.
    const auto exponent = parseInteger<std::int64_t>(digits);
    return exponent ? *exponent >= -place : !digits.starts_with('-');
}

std::string untilEnd(const Room& room, const char* end)
{
    return {room.data(), end};
}

}

std::optional<double> parseDecimal(std::string_view text)
{
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end != text.data() + text.size() || error == std::errc::invalid_argument)
        return std::nullopt;
    // Out of range is both too large and too small.
    if (error == std::errc::result_out_of_range)
        return isAtLeastOne(text) ? std::nullopt : std::optional(0.0);
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<std::int64_t> exactInteger(double value)
{
    constexpr double limit = 0x1p63;
    if (!(value >= -limit && value < limit) || value != std::trunc(value))
        return std::nullopt;
    return static_cast<std::int64_t>(value);
}

std::string shortest(double value)
{
    constexpr double minFixed = 1e-4;
    constexpr double minScientific = 1e16;
    const double magnitude = std::abs(value);
    const bool isFixed = magnitude == 0 || (magnitude >= minFixed && magnitude < minScientific);
    Room room;
    const auto format = isFixed ? std::chars_format::fixed : std::chars_format::scientific;
    std::string text =
        untilEnd(room, std::to_chars(room.data(), room.data() + room.size(), value, format).ptr);
    if (isFixed && !text.contains('.'))
        text += ".0";
    return text;
}

std::string oneDecimal(double value)
{
    Room room;
    return untilEnd(room, std::to_chars(room.data(), room.data() + room.size(), value,
                                        std::chars_format::fixed, 1)
                              .ptr);
}

std::string padded(const std::string& text, std::size_t width)
{
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

}
