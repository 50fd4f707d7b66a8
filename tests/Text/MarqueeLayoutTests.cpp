#include "SkinKit/Text/MarqueeLayout.h"

#include <gtest/gtest.h>

#include <climits>

using namespace SkinKit;

namespace {

const std::string thirty(30, 'x');
const std::string thirtyOne(31, 'x');
const std::string title = "1. DJ Nico Parda - Parda Rattling Intro (0:05)"; // 46 units

}

TEST(MarqueeLayout, FillsAShortTextUpAndLoopsALongOne)
{
    const std::tuple<std::string, bool, std::string> rows[] = {
        {"", false, std::string(31, ' ')},
        {"Velmar", false, "Velmar" + std::string(25, ' ')},
        {thirty, false, thirty + " "},
        {thirtyOne, true, thirtyOne + "  ***  " + thirtyOne},
        // counted composed, in UTF-16 units
        {std::string(29, 'x') + "e\u0301", false, std::string(29, 'x') + "\u00E9 "},
        {std::string(29, 'x') + "\U0001F600", true,
         std::string(29, 'x') + "\U0001F600  ***  " + std::string(29, 'x') + "\U0001F600"},
    };
    for (const auto& [text, isLong, loop] : rows) {
        EXPECT_EQ(MarqueeLayout::isLong(text), isLong) << text;
        EXPECT_EQ(MarqueeLayout::loopText(text), loop) << text;
    }
}

TEST(MarqueeLayout, WrapsTheOffsetAtTheLengthOfOneRound)
{
    const std::tuple<std::string, int, int, int> rows[] = {
        {title,     0,       0,       0                                              },
        {title,     1,       0,       5                                              },
        {title,     52,      4,       264                                            },
        {title,     53,      0,       0                                              },
        {title,     0,       -1,      264                                            },
        {title,     -1,      0,       260                                            },
        {title,     -53,     0,       0                                              },
        {title,     1,       -6,      264                                            },
        {title,     INT_MAX, INT_MAX, static_cast<int>(6LL * INT_MAX % 265)          },
        {title,     INT_MIN, INT_MIN, static_cast<int>(265 - 6LL * INT_MAX % 265 - 6)},
        {thirtyOne, 38,      0,       0                                              },
        {thirtyOne, 37,      4,       189                                            },
        {thirty,    7,       3,       0                                              },
        {"",        7,       3,       0                                              },
    };
    for (const auto& [text, step, pixels, expected] : rows)
        EXPECT_EQ(MarqueeLayout::stepOffset(text, step, pixels), expected)
            << text << ", " << step << ", " << pixels;
}
