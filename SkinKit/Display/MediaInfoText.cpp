#include "SkinKit/Display/MediaInfoText.h"

#include "SkinKit/Platform/Numbers.h"

#include <algorithm>
#include <cmath>

namespace SkinKit::MediaInfoText {
std::string kbps(std::optional<int> bitrateKbps)
{
    constexpr std::size_t width = 3;
    const int rate = std::max(0, bitrateKbps.value_or(0));
    const std::string digits = std::to_string(rate);
    if (rate >= 10'000)
        return Numbers::padded(digits.substr(0, 1) + "C", width);
    if (rate >= 1000)
        return digits.substr(0, 2) + "H";
    return Numbers::padded(digits, width);
}

std::string khz(std::optional<double> sampleRate)
{
    constexpr std::size_t width = 2;
    constexpr double most = 1e18; // beyond any rate there is, and an integer holds it
    if (!sampleRate || !std::isfinite(*sampleRate))
        return " 0";
    const double rounded = std::round(*sampleRate / 1000);
    const long long rate = std::llround(std::clamp(rounded, 0.0, most));
    std::string digits = std::to_string(rate);
    if (rate >= 100)
        return digits.substr(1, width);
    if (rate <= 10)
        return Numbers::padded(digits.substr(0, 1), width);
    return digits;
}

}
