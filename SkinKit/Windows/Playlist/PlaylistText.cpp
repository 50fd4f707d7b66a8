#include "SkinKit/Windows/Playlist/PlaylistText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace SkinKit::PlaylistText {
namespace {

// The decimal digits of a whole number, however many there are.
std::string digits(double whole)
{
    std::array<char, std::numeric_limits<double>::max_exponent10 + 2> text;
    const auto end =
        std::to_chars(text.begin(), text.end(), whole, std::chars_format::fixed, 0).ptr;
    return {text.begin(), end};
}

}

std::string rowNumber(int index, int count)
{
    const std::string number = std::to_string(std::int64_t{index} + 1);
    const std::size_t width = std::to_string(std::max(count, 1)).size();
    std::string text;
    for (std::size_t length = number.size(); length < width; ++length)
        text += "\u00A0";
    return text + number + ". ";
}

std::string displayName(std::string_view artist, std::string_view title, std::string_view fileName)
{
    if (title.empty())
        return std::string(fileName);
    if (artist.empty())
        return std::string(title);
    return std::string(artist) + " - " + std::string(title);
}

std::string time(std::optional<double> seconds)
{
    if (!seconds || !std::isfinite(*seconds) || *seconds < 0)
        return {};
    const double whole = std::fabs(std::floor(*seconds)); // zero may be negative
    const double rest = std::fmod(whole, 60);
    return digits((whole - rest) / 60) + (rest < 10 ? ":0" : ":") + digits(rest);
}

std::string runningTime(std::optional<double> selected, std::optional<double> total)
{
    std::string text = time(selected) + "/" + time(total);
    text.resize(std::max<std::size_t>(text.size(), runningTimeLength), ' ');
    return text;
}

}
