#pragma once

#include <optional>
#include <string_view>

namespace SkinKit {

// Which way the clock counts.
enum class TimeMode { elapsed, remaining };

// "elapsed" and "remaining", and back; nothing for any other text.
std::string_view rawValue(TimeMode mode);
std::optional<TimeMode> parseTimeMode(std::string_view text);

// The four digits of the clock, each 0 … 9 or absent.
struct TimeDigits {
    std::optional<int> minutesTens;
    std::optional<int> minutesOnes;
    std::optional<int> secondsTens;
    std::optional<int> secondsOnes;

    bool operator==(const TimeDigits&) const = default;

    // Whole seconds, rounded down, held within 0 … 99:59; not-a-number and infinities count as 0.
    static TimeDigits fromSeconds(double seconds);
    // The elapsed seconds, or those that are left but never fewer than none.
    static TimeDigits shown(TimeMode mode, double elapsed, double duration);
};

}
