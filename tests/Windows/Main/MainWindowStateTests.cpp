#include "SkinKit/Windows/Main/MainWindowState.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>

using namespace SkinKit;

TEST(MediaInfoText, FitsABitRateIntoThreeCharacters)
{
    const std::pair<std::optional<int>, std::string_view> rows[] = {
        {std::nullopt, "  0"},
        {0,            "  0"},
        {-5,           "  0"},
        {INT_MIN,      "  0"},
        {7,            "  7"},
        {64,           " 64"},
        {128,          "128"},
        {999,          "999"},
        {1000,         "10H"},
        {1411,         "14H"},
        {9999,         "99H"},
        {10'000,       " 1C"},
        {12'345,       " 1C"},
        {99'999,       " 9C"},
        {INT_MAX,      " 2C"},
    };
    for (const auto& [rate, expected] : rows)
        EXPECT_EQ(MediaInfoText::kbps(rate), expected) << rate.value_or(-1);
}

TEST(MediaInfoText, FitsASampleRateIntoTwoCharacters)
{
    const std::pair<std::optional<double>, std::string_view> rows[] = {
        {std::nullopt,                             " 0"},
        {std::numeric_limits<double>::infinity(),  " 0"},
        {std::numeric_limits<double>::quiet_NaN(), " 0"},
        {-44'100,                                  " 0"},
        {499,                                      " 0"},
        {500,                                      " 1"},
        {9499,                                     " 9"},
        {9500,                                     " 1"},
        {10'499,                                   " 1"},
        {10'500,                                   "11"},
        {44'100,                                   "44"},
        {47'500,                                   "48"},
        {99'499,                                   "99"},
        {99'500,                                   "00"},
        {192'000,                                  "92"},
        {1'234'000,                                "23"},
        {1e300,                                    "00"},
    };
    for (const auto& [rate, expected] : rows)
        EXPECT_EQ(MediaInfoText::khz(rate), expected) << rate.value_or(-1);
}

TEST(MiniTime, SpellsTheClockOutWithItsSign)
{
    const auto characters = [](Transport transport, TimeMode mode) {
        std::string joined;
        for (const auto& character : MiniTime::characters(
                 {.transport = transport, .timeMode = mode, .elapsed = 3, .duration = 757}))
            joined += character;
        return joined;
    };
    EXPECT_EQ(characters(Transport::playing, TimeMode::elapsed), " 0003");
    EXPECT_EQ(characters(Transport::paused, TimeMode::remaining), "-1234");
    EXPECT_EQ(characters(Transport::loading, TimeMode::remaining), "-1234");
    EXPECT_EQ(characters(Transport::stopped, TimeMode::remaining), "     ");
}
