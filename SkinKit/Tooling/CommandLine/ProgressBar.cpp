#include "SkinKit/Tooling/CommandLine/ProgressBar.h"

#include "SkinKit/Base/Numbers.h"

#include <algorithm>
#include <array>
#include <cinttypes>
#include <cmath>
#include <cstdio>

namespace SkinKit::ProgressBar {
namespace {

// "0:07", "12:34", "1:02:03".
std::string duration(double seconds)
{
    constexpr double most = 1e9; // thirty years
    const auto whole = static_cast<std::int64_t>(std::ceil(std::min(seconds, most)));
    const auto [hours, minutes, rest] = std::array{whole / 3600, whole / 60 % 60, whole % 60};
    char text[32];
    if (hours > 0)
        std::snprintf(text, sizeof text, "%" PRId64 ":%02" PRId64 ":%02" PRId64, hours, minutes,
                      rest);
    else
        std::snprintf(text, sizeof text, "%" PRId64 ":%02" PRId64, minutes, rest);
    return text;
}

std::string bar(double share, int width)
{
    std::string text = "[";
    text.append(static_cast<std::size_t>(std::floor(share * width)), '#');
    text.resize(static_cast<std::size_t>(width) + 1, ' ');
    text += ']';
    return text;
}

}

std::string line(const Numbers& numbers, double seconds, int columns)
{
    constexpr int widestBar = 40;
    constexpr int narrowestBar = 5;
    constexpr std::size_t widestShare = 7;
    const std::int64_t answered = numbers.before + numbers.done;
    const double share =
        numbers.total == 0
            ? 1
            : std::clamp(static_cast<double>(answered) / static_cast<double>(numbers.total), 0.0,
                         1.0);

    std::string text =
        SkinKit::Numbers::padded(SkinKit::Numbers::oneDecimal(share * 100), widestShare) + "%  " +
        std::to_string(answered) + "/" + std::to_string(numbers.total) + " ";
    text += numbers.what;
    if (numbers.done > 0) {
        const auto left = static_cast<double>(numbers.total - answered);
        text += "  " + duration(seconds / static_cast<double>(numbers.done) * left) + " left";
    }

    constexpr int brackets = 2;
    const int width = std::min(widestBar, columns - brackets - static_cast<int>(text.size()));
    if (width >= narrowestBar)
        text = bar(share, width) + text;
    return text.substr(0, static_cast<std::size_t>(std::max(columns, 0)));
}

}
