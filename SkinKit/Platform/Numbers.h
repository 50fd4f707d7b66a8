#pragma once

#include <charconv>
#include <concepts>
#include <optional>
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

}
