#pragma once

#include "SkinKit/Platform/Check.h"

#include <string_view>

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
