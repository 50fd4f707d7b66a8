#include "SkinKit/Base/Numbers.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

using namespace SkinKit;

TEST(Numbers, ParsesIntegersThatAreTheWholeText)
{
    const std::pair<std::string_view, std::optional<std::int64_t>> rows[] = {
        {"0",                    0           },
        {"-0",                   0           },
        {"+5",                   5           },
        {"-5",                   -5          },
        {"9223372036854775807",  INT64_MAX   },
        {"9223372036854775808",  std::nullopt},
        {"-9223372036854775808", INT64_MIN   },
        {"-9223372036854775809", std::nullopt},
        {"",                     std::nullopt},
        {"-",                    std::nullopt},
        {"+-5",                  std::nullopt},
        {"--5",                  std::nullopt},
        {"5x",                   std::nullopt},
        {"5.0",                  std::nullopt},
        {"0x5",                  std::nullopt},
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
    const std::pair<std::string, std::optional<double>> rows[] = {
        {"2.5", 2.5},
        {"+2.5", 2.5},
        {"-.5", -0.5},
        {"5.", 5},
        {"1e3", 1000},
        {"1E-2", 0.01},
        {"", std::nullopt},
        {"1.5x", std::nullopt},
        {"nan", std::nullopt},
        {"inf", std::nullopt},
        // Too large is nothing, too small is 0; the exponent alone does not tell which.
        {"1e400", std::nullopt},
        {"0.5e400", std::nullopt},
        {"1" + std::string(400, '0') + "e-1", std::nullopt},
        {std::string(400, '9') + ".5", std::nullopt},
        {"1e99999999999999999999", std::nullopt},
        {"-1e-400", 0},
        {"0.5e-400", 0},
        {"0." + std::string(400, '0') + "1e+1", 0},
        {"1e-99999999999999999999", 0},
        {"0e99999999999999999999", 0},
        {"0x1p3", std::nullopt},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(Numbers::parseDecimal(text), expected) << text;
}

TEST(Numbers, PrintTheFewestDigitsWithAPoint)
{
    const std::pair<double, std::string_view> rows[] = {
        {10,                 "10.0"              },
        {0,                  "0.0"               },
        {2.5,                "2.5"               },
        {-0.1,               "-0.1"              },
        {0.0001,             "0.0001"            },
        {1e-5,               "1e-05"             },
        {1e6,                "1000000.0"         },
        {1e16,               "1e+16"             },
        {9007199254740993e0, "9007199254740992.0"},
    };
    for (const auto& [value, text] : rows)
        EXPECT_EQ(Numbers::shortest(value), text);
}

TEST(Numbers, RoundToOneDecimal)
{
    EXPECT_EQ(Numbers::oneDecimal(0), "0.0");
    EXPECT_EQ(Numbers::oneDecimal(94.96), "95.0");
    EXPECT_EQ(Numbers::oneDecimal(-12.34), "-12.3");
    EXPECT_EQ(Numbers::oneDecimal(1.7e308).size(), 311U);
}

TEST(Numbers, AreWholeOnlyWhenExactlySo)
{
    EXPECT_EQ(Numbers::exactInteger(-5.0), -5);
    EXPECT_EQ(Numbers::exactInteger(-0x1p63), INT64_MIN);
    for (const double value : {1.5, 0x1p63, -1e300, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(Numbers::exactInteger(value), std::nullopt) << value;
}
