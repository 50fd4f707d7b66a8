#include "SkinKit/Platform/Numbers.h"

#include <cmath>

namespace SkinKit::Numbers {

std::optional<double> parseDecimal(std::string_view text)
{
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end != text.data() + text.size() || error == std::errc::invalid_argument)
        return std::nullopt;
    // Out of range is both too large and too small; only the latter has a negative exponent, or
    // no digit but zeros before the point.
    if (error == std::errc::result_out_of_range)
        return text.contains("e-") || text.contains("E-") ||
                       text.substr(0, text.find('.')).find_first_of("123456789") == text.npos
                   ? std::optional(0.0)
                   : std::nullopt;
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

}
