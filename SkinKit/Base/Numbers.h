#pragma once

#include <charconv>
#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Numbers as text and back, always in plain ASCII decimal whatever the locale.
namespace SkinKit::Numbers {

// The whole text as a base-10 integer with an optional sign; nothing for anything else before,
// behind or between the digits, or a value outside the type.
template <std::integral Integer>
std::optional<Integer> parseInteger(std::string_view text)
{
    // from_chars knows "-5" but not "+5".
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    Integer value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

// The whole text as a finite decimal number (sign, digits, fraction, exponent), or nothing. One too
// small to be told from 0 is 0.
std::optional<double> parseDecimal(std::string_view text);

// The value as a whole number, when it is one that std::int64_t holds.
std::optional<std::int64_t> exactInteger(double value);

// The fewest digits that read back as the same number, always with a point or an exponent: 10.0,
// 2.5, 1e+16. Exponents below 0.0001 and from 10^16 on.
std::string shortest(double value);
// One digit behind the point, to nearest: 99.5.
std::string oneDecimal(double value);

// The number's text behind blanks, at least so wide.
std::string padded(const std::string& text, std::size_t width);

}
