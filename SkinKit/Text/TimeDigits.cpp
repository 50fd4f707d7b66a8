#include "SkinKit/Text/TimeDigits.h"

#include <algorithm>
#include <cmath>

namespace SkinKit {

std::string_view rawValue(TimeMode mode)
{
    return mode == TimeMode::elapsed ? "elapsed" : "remaining";
}

std::optional<TimeMode> parseTimeMode(std::string_view text)
{
    for (const auto mode : {TimeMode::elapsed, TimeMode::remaining})
        if (rawValue(mode) == text)
            return mode;
    return std::nullopt;
}

TimeDigits TimeDigits::fromSeconds(double seconds)
{
    constexpr double maxSeconds = 99 * 60 + 59;
    const double whole = std::isfinite(seconds) ? std::floor(seconds) : 0;
    const int shown = static_cast<int>(std::clamp(whole, 0.0, maxSeconds));
    return {shown / 600, shown / 60 % 10, shown % 60 / 10, shown % 10};
}

TimeDigits TimeDigits::shown(TimeMode mode, double elapsed, double duration)
{
    if (mode == TimeMode::elapsed)
        return fromSeconds(elapsed);
    return fromSeconds(std::max(0.0, duration - elapsed));
}

}
