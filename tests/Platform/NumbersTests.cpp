#include "SkinKit/Platform/Numbers.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

using namespace SkinKit;

TEST(Numbers, ParsesIntegersThatAreTheWholeText)
{
    struct Row {
        std::string_view text;
        std::optional<std::int64_t> expected;
    };
    const Row rows[] = {
        {"0",                    0           },
        {"-0",                   0           },
        {"+5",                   5           },
        {"-5",                   -5          },
        {"007",                  7           },
        {"9223372036854775807",  INT64_MAX   },
        {"9223372036854775808",  std::nullopt},
        {"-9223372036854775808", INT64_MIN   },
        {"-9223372036854775809", std::nullopt},
        {"",                     std::nullopt},
        {"+",                    std::nullopt},
        {"-",                    std::nullopt},
        {"+-5",                  std::nullopt},
        {"--5",                  std::nullopt},
        {"++5",                  std::nullopt},
        {" 5",                   std::nullopt},
        {"5 ",                   std::nullopt},
        {"5x",                   std::nullopt},
        {"5.0",                  std::nullopt},
        {"0x5",                  std::nullopt},
        {"1e3",                  std::nullopt},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(Numbers::parseInteger<std::int64_t>(text), expected) << text;
    EXPECT_EQ(Numbers::parseInteger<std::uint64_t>("18446744073709551615"), UINT64_MAX);
    EXPECT_FALSE(Numbers::parseInteger<std::uint64_t>("18446744073709551616"));
    EXPECT_FALSE(Numbers::parseInteger<std::uint64_t>("-1"));
    EXPECT_FALSE(Numbers::parseInteger<std::int8_t>("128"));
}

TEST(Numbers, ParsesFiniteDecimalsThatAreTheWholeText)
{
    struct Row {
        std::string text;
        std::optional<double> expected;
    };
    const Row rows[] = {
        {"2.5", 2.5},
        {"+2.5", 2.5},
        {"-.5", -0.5},
        {"5.", 5},
        {"1e3", 1000},
        {"1E-2", 0.01},
        {"", std::nullopt},
        {"+-1", std::nullopt},
        {"1,5", std::nullopt},
        {"1.5x", std::nullopt},
        {" 1", std::nullopt},
        {"1 ", std::nullopt},
        {"nan", std::nullopt},
        {"inf", std::nullopt},
        {"-infinity", std::nullopt},
        {"1e400", std::nullopt},
        {"-1e-400", 0}, // too small is 0, too large is nothing
        {"0." + std::string(400, '0') + "1", 0},
        {std::string(400, '9') + ".5", std::nullopt},
        {"0x1p3", std::nullopt},
        {"e5", std::nullopt},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(Numbers::parseDecimal(text), expected) << text;
}
