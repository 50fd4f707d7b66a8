#include "SkinKit/Text/TimeDigits.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace SkinKit;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

std::string text(const TimeDigits& digits)
{
    std::string shown;
    for (const auto& digit :
         {digits.minutesTens, digits.minutesOnes, digits.secondsTens, digits.secondsOnes})
        shown += digit ? std::to_string(*digit) : " ";
    return shown;
}

}

TEST(TimeDigits, ShowWholeSecondsUpToAnHourAndMore)
{
    const std::tuple<TimeMode, double, double, std::string_view> rows[] = {
        {TimeMode::elapsed,   0,          100,      "0000"},
        {TimeMode::elapsed,   65.9,       100,      "0105"},
        {TimeMode::elapsed,   599.999,    0,        "0959"},
        {TimeMode::elapsed,   754,        0,        "1234"},
        {TimeMode::elapsed,   5999,       0,        "9959"},
        {TimeMode::elapsed,   6000,       0,        "9959"},
        {TimeMode::elapsed,   1e300,      0,        "9959"},
        {TimeMode::elapsed,   -0.5,       0,        "0000"},
        {TimeMode::elapsed,   -1e300,     0,        "0000"},
        {TimeMode::elapsed,   notANumber, 0,        "0000"},
        {TimeMode::elapsed,   infinity,   0,        "0000"},
        {TimeMode::remaining, 3,          65,       "0102"},
        {TimeMode::remaining, 0.5,        65,       "0104"},
        {TimeMode::remaining, 7,          5,        "0000"},
        {TimeMode::remaining, notANumber, 65,       "0000"},
        {TimeMode::remaining, 0,          infinity, "0000"},
        {TimeMode::remaining, -infinity,  0,        "0000"},
    };
    for (const auto& [mode, elapsed, duration, expected] : rows)
        EXPECT_EQ(text(TimeDigits::shown(mode, elapsed, duration)), expected)
            << elapsed << " of " << duration;
}

TEST(TimeMode, IsReadFromItsExactWord)
{
    EXPECT_EQ(parseTimeMode("elapsed"), TimeMode::elapsed);
    EXPECT_EQ(parseTimeMode("remaining"), TimeMode::remaining);
    for (const auto* other : {"", "Elapsed", "elapsed ", "remain"})
        EXPECT_EQ(parseTimeMode(other), std::nullopt);
}

TEST(DigitFont, NamesTheSpriteOfEachDigit)
{
    EXPECT_EQ(DigitFont::digitSpriteName(0), "DIGIT_0");
    EXPECT_EQ(DigitFont::digitSpriteName(9), "DIGIT_9");
    EXPECT_DEATH(static_cast<void>(DigitFont::digitSpriteName(10)), "digit");
}
