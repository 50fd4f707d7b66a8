#pragma once

#include "SkinKit/Base/Check.h"

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

// The names of the clock's sprites. Which sheet they come from is settled when they are resolved.
namespace SkinKit::DigitFont {

inline constexpr std::string_view minusName = "MINUS_SIGN";
inline constexpr std::string_view noMinusName = "NO_MINUS_SIGN"; // blanks the sign's place

// For a digit of 0 … 9.
inline std::string_view digitSpriteName(int digit)
{
    constexpr std::string_view names[] = {"DIGIT_0", "DIGIT_1", "DIGIT_2", "DIGIT_3", "DIGIT_4",
                                          "DIGIT_5", "DIGIT_6", "DIGIT_7", "DIGIT_8", "DIGIT_9"};
    check(digit >= 0 && digit <= 9, "a digit is 0 to 9");
    return names[digit];
}

}
