#include "SkinKit/Windows/Playlist/PlaylistShadeLayout.h"

#include <gtest/gtest.h>

#include <limits>

using namespace SkinKit;

namespace {

constexpr int smallest = std::numeric_limits<int>::min();

}

TEST(PlaylistShadeLayout, KeepsItsButtonsAtTheRightEdge)
{
    using namespace PlaylistShadeLayout;
    const std::array<Rect, 3> base{
        {{264, 3, 9, 9}, {254, 3, 9, 9}, {246, 3, 9, 9}}
    };
    const std::array<Rect, 3> none{
        {{-11, 3, 9, 9}, {-21, 3, 9, 9}, {-29, 3, 9, 9}}
    };
    EXPECT_EQ(dragExclusions(275), base);
    EXPECT_EQ(dragExclusions(smallest), none);
    EXPECT_EQ(timeRightEdge(275), 245);
    EXPECT_EQ(timeRightEdge(smallest), -30);
}

TEST(PlaylistShadeLayout, CutsTheTitleBetweenTwoCharactersAsReadersSeeThem)
{
    const std::string longest(41, 'x');
    const std::string letter = "e\u0301";                    // with its mark
    const std::string family = "\U0001F468\u200D\U0001F469"; // two people joined to one sign
    const std::string flag = "\U0001F1E9\U0001F1EA";
    const std::tuple<std::optional<std::string>, int, std::string> rows[] = {
        {std::nullopt,                   275,      "[No file]"             },
        {std::nullopt,                   smallest, "[No file]"             },
        {"",                             275,      ""                      },
        {longest,                        275,      longest                 },
        {longest + "x",                  275,      longest.substr(1) + "…" },
        {longest + "x",                  279,      longest.substr(1) + "…" },
        {longest + "x",                  280,      longest + "x"           },
        {"abc",                          85,       "abc"                   },
        {"abcd",                         85,       "ab…"                   },
        {letter + letter + letter,       85,       letter + letter + letter},
        {letter + letter + letter + "x", 85,       letter + letter + "…"   },
        {family + family + "xy",         85,       family + family + "…"   },
        {flag + flag + flag + flag,      85,       flag + flag + "…"       },
        {"\r\n\r\n\r\n",                 85,       "\r\n\r\n\r\n"          },
        {"ab",                           75,       "…"                     },
        {"a",                            70,       "…"                     },
        {"",                             66,       ""                      }, // -0.8 is 0 characters
        {"",                             65,       "…"                     },
        {"a",                            smallest, "…"                     },
        {"\xFF\xFF\xFF\xFF",             85,       "\xFF\xFF…"             }, // a character each
    };
    for (const auto& [name, width, expected] : rows)
        EXPECT_EQ(PlaylistShadeLayout::title(name, width), expected) << width;
}

TEST(PlaylistShadeLayout, WritesTheTimeWithoutALeadingZero)
{
    using PlaylistShadeLayout::timeString;
    const std::pair<std::optional<double>, std::string_view> rows[] = {
        {std::nullopt,                             ""     },
        {0,                                        "0:00" },
        {65.9,                                     "1:05" },
        {754,                                      "12:34"},
        {1e9,                                      "99:59"},
        {-5,                                       "0:00" },
        {std::numeric_limits<double>::quiet_NaN(), "0:00" },
    };
    for (const auto& [seconds, expected] : rows)
        EXPECT_EQ(timeString(seconds), expected);
    EXPECT_EQ(timeString(TimeDigits{}), "00:00");
    EXPECT_EQ(timeString(TimeDigits{.minutesTens = 0, .secondsOnes = 7}), "0:07");
}
