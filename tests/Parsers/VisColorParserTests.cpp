#include "SkinKit/Parsers/VisColorParser.h"
#include "tests/support/Bytes.h"

#include <gtest/gtest.h>

#include <random>
#include <regex>
#include <string>

using namespace SkinKit;

namespace {

std::string lines(int count, std::string_view line)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += std::string(line) + "\n";
    return text;
}

// The first colour of a one-line file, or nothing when the line gave none.
std::optional<RGBColor> colorOf(std::string_view line)
{
    const auto [colors, count] = VisColorParser::parseCounted(line);
    return count == 1 ? std::optional(colors[0]) : std::nullopt;
}

}

TEST(VisColorParser, CountsTheLinesThatGiveAColour)
{
    struct Row {
        std::string text;
        int count;
    };
    const Row rows[] = {
        {"", 0},
        {lines(23, "1,2,3"), 23},
        {lines(24, "1,2,3"), 24},
        {lines(30, "1,2,3"), 24},
        {"// colours\n" + lines(23, "1,2,3"), 23}, // the comment takes no place
        {"1,2,3\r\n\r\n4,5,6\r7,8,9", 3},
    };
    for (const auto& [text, count] : rows) {
        const auto result = VisColorParser::parseCounted(text);
        EXPECT_EQ(result.parsedCount, count) << text;
        for (int i = count; i < VisColorParser::colorCount; ++i)
            EXPECT_EQ(result.colors[static_cast<std::size_t>(i)],
                      VisColorParser::defaults[static_cast<std::size_t>(i)])
                << text << i;
    }
    const auto late = VisColorParser::parseCounted(lines(24, "1,2,3") + "9,9,9");
    EXPECT_EQ(late.colors[23], (RGBColor{1, 2, 3}));
}

TEST(VisColorParser, ReadsThreeNumbersFromTheStartOfALine)
{
    struct Row {
        std::string_view line;
        std::optional<RGBColor> expected;
    };
    const Row rows[] = {
        {"24,33,41, // grid dots",                                RGBColor{24, 33, 41}   },
        {" \t 1 , 2\t,3abc",                                      RGBColor{1, 2, 3}      },
        {"1 2 3",                                                 RGBColor{1, 2, 3}      },
        {"123",                                                   RGBColor{1, 2, 3}      },
        {"12 34",                                                 RGBColor{12, 3, 4}     },
        {"12,3",                                                  RGBColor{1, 2, 3}      },
        {"1,,2,3",                                                std::nullopt           },
        {"123,,4",                                                RGBColor{1, 2, 3}      },
        {"300,256,255",                                           RGBColor{255, 255, 255}},
        {"99999999999999999999999,000000000000000000000000007,0", RGBColor{255, 7, 0}    },
        {"-1,2,3",                                                std::nullopt           },
        {"1,-2,3",                                                std::nullopt           },
        {"x1,2,3",                                                std::nullopt           },
        {"1.5,2,3",                                               std::nullopt           },
        {"1;2;3",                                                 std::nullopt           },
        {"1,2",                                                   std::nullopt           },
        {"\u0661,2,3",                                            RGBColor{255, 2, 3}    }, // a digit, but of another script
        {"\u00A01\u3000,\u20032 3",                               RGBColor{1, 2, 3}      }, // other white space
        {"\uFEFF1,2,3",                                           std::nullopt           }, // a byte order mark is no white space
    };
    for (const auto& [line, expected] : rows)
        EXPECT_EQ(colorOf(line), expected) << line;
}

TEST(VisColorParser, MatchesWhatTheExpressionMatches)
{
    const std::regex expression(R"(^\s*(\d+)\s*,?\s*(\d+)\s*,?\s*(\d+))");
    constexpr std::string_view alphabet = "0123  ,,x\t";
    std::mt19937 random(4);
    for (int round = 0; round < 20'000; ++round) {
        std::string line;
        for (auto length = 1 + random() % 11; length > 0; --length)
            line += alphabet[random() % alphabet.size()];
        std::optional<RGBColor> expected;
        std::smatch match;
        if (std::regex_search(line, match, expression)) {
            const auto channel = [&match](std::size_t group) {
                return static_cast<std::uint8_t>(std::min(255L, std::stol(match[group].str())));
            };
            expected = RGBColor{channel(1), channel(2), channel(3)};
        }
        ASSERT_EQ(colorOf(line), expected) << "'" << line << "'";
    }
}

TEST(VisColorParser, RepairsBytesThatAreNotUTF8)
{
    const auto bytes = support::bytes("1,2,3 \xFF\n\xFF"
                                      "4,5,6\n7,8,9");
    const auto result = VisColorParser::parseCounted(ByteView(bytes));
    EXPECT_EQ(result.parsedCount, 2);
    EXPECT_EQ(result.colors[1], (RGBColor{7, 8, 9}));
}
