#include "SkinKit/Formats/VisColorParser.h"

#include <gtest/gtest.h>

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
    const std::pair<std::string, int> rows[] = {
        {lines(23, "1,2,3"), 23},
        {lines(24, "1,2,3") + "9,9,9", 24},
        {"// colours\n" + lines(23, "1,2,3"), 23}, // the comment takes no place
        {"1,2,3\r\n\r\n1,2,3\r1,2,3", 3},
        {"", 0},
    };
    for (const auto& [text, count] : rows) {
        const auto result = VisColorParser::parseCounted(text);
        EXPECT_EQ(result.parsedCount, count) << text;
        for (int i = 0; i < VisColorParser::colorCount; ++i) {
            const auto place = static_cast<std::size_t>(i);
            EXPECT_EQ(result.colors[place],
                      i < count ? RGBColor(1, 2, 3) : VisColorParser::defaults[place])
                << text << i;
        }
    }
}

TEST(VisColorParser, ReadsThreeNumbersFromTheStartOfALine)
{
    const std::pair<std::string_view, std::optional<RGBColor>> rows[] = {
        {"24,33,41, // grid dots",                                RGBColor{24, 33, 41}   },
        {" \t 1 , 2\t,3abc",                                      RGBColor{1, 2, 3}      },
        {"1 2 3",                                                 RGBColor{1, 2, 3}      },
        {"12 34",                                                 RGBColor{12, 3, 4}     },
        {"1,,2,3",                                                std::nullopt           },
        {"123,,4",                                                RGBColor{1, 2, 3}      },
        {"300,256,255",                                           RGBColor{255, 255, 255}},
        {"99999999999999999999999,000000000000000000000000007,0", RGBColor{255, 7, 0}    },
        {"-1,2,3",                                                std::nullopt           },
        {"1,-2,3",                                                std::nullopt           },
        {"1,2",                                                   std::nullopt           },
        {"\u0661,2,3",                                            RGBColor{255, 2, 3}    }, // a digit, but of another script
        {"\u00A01\u3000,\u20032 3",                               RGBColor{1, 2, 3}      }, // other white space
        {"\uFEFF1,2,3",                                           std::nullopt           }, // a byte order mark is no white space
    };
    for (const auto& [line, expected] : rows)
        EXPECT_EQ(colorOf(line), expected) << line;
}
