#include "SkinKit/Windows/Playlist/PlaylistLayout.h"

#include <gtest/gtest.h>

#include <limits>

using namespace SkinKit;
using namespace SkinKit::PlaylistLayout;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr int smallest = std::numeric_limits<int>::min();
constexpr int largest = std::numeric_limits<int>::max();

std::vector<Steps> someSteps()
{
    std::vector<Steps> steps;
    for (int width = 0; width < 12; ++width)
        for (int height = 0; height < 14; ++height)
            steps.emplace_back(width, height);
    steps.emplace_back(100, 200);
    steps.emplace_back(largest, 0);
    steps.emplace_back(0, largest);
    steps.emplace_back(largest, largest);
    return steps;
}

}

TEST(PlaylistLayout, HoldsStepsWithinTheWindowsThatCanBe)
{
    EXPECT_EQ(Steps(-1, smallest), Steps::zero());
    EXPECT_EQ(size(Steps::zero()), (Size{275, 116}));
    EXPECT_EQ(size({2, 3}), (Size{325, 203}));
    const Size most = size({largest, largest});
    EXPECT_GT(most.width, largest - stepSize.width);
    EXPECT_GT(most.height, largest - stepSize.height);
}

TEST(PlaylistLayout, KeepsThePartsAtTheirEdges)
{
    constexpr Steps base;
    constexpr Steps wide(4, 3); // 375 × 203
    const std::pair<Rect, Rect> rows[] = {
        {closeButton(base), {264, 3, 9, 9}},
        {closeButton(wide), {364, 3, 9, 9}},
        {titleButtonRects(wide)[0], {354, 3, 9, 9}},
        {titleButtonRects(wide)[1], closeButton(wide)},
        {resizeTarget(wide), {355, 183, 20, 20}},
        {scrollTrack(wide), {360, 20, 8, 145}},
        {scrollUpButton(wide), {360, 167, 8, 5}},
        {scrollDownButton(wide), {360, 173, 8, 5}},
        {trackArea(base), {12, 23, 243, 52}},
        {trackArea(wide), {12, 23, 343, 139}},
        {miniTimeHitArea(wide), {291, 188, 31, 6}},
        {actionButtons(base)[0], {128, 100, 10, 10}},
        {actionButtons(wide)[5], {278, 187, 10, 10}},
        {menuButton(Menu::add, wide), {14, 173, 22, 18}},
        {menuButton(Menu::remove, wide), {43, 173, 22, 18}},
        {menuButton(Menu::selection, wide), {72, 173, 22, 18}},
        {menuButton(Menu::misc, wide), {101, 173, 22, 18}},
        {menuButton(Menu::list, wide), {331, 173, 22, 18}},
        {visualizerBackground(wide).value(), {150, 165, 75, 38}},
    };
    for (const auto& [actual, expected] : rows)
        EXPECT_EQ(actual, expected) << expected.x << ", " << expected.y;
    EXPECT_EQ(runningTimeOrigin(wide), (Point{232, 175}));
    EXPECT_EQ(miniTimeOrigin(wide), (Point{291, 188}));
    EXPECT_EQ(miniTimeCellXs, (std::array{1, 7, 12, 20, 25}));
    EXPECT_FALSE(visualizerBackground({2, 99}));
    EXPECT_TRUE(visualizerBackground({3, 0}));
}

TEST(PlaylistLayout, HasRoomForWholeRows)
{
    const std::pair<int, int> rows[] = {
        {0,  4 },
        {1,  6 },
        {3,  11},
        {10, 26}
    };
    for (const auto& [steps, expected] : rows)
        EXPECT_EQ(visibleRows({0, steps}), expected);
    for (const Steps steps : someSteps()) {
        const Rect area = trackArea(steps);
        const int unused = bottom(steps) - bottomHeight - area.y - rowHeight * visibleRows(steps);
        EXPECT_GE(unused, -trackMargin); // no more than the margin is cut off the last row
        EXPECT_LT(unused, rowHeight);
    }
}

TEST(PlaylistLayout, ClosesTheFrameAtEverySize)
{
    for (const Steps steps : someSteps()) {
        for (const bool selected : {false, true}) {
            int x = 0;
            for (const Piece& piece : topRow(selected, steps)) {
                ASSERT_EQ(piece.rect, (Rect{x, 0, piece.rect.width, topHeight})) << piece.sprite;
                x = piece.rect.right();
            }
            EXPECT_EQ(x, right(steps));
        }
        const auto foot = bottomRow(steps);
        EXPECT_EQ(foot[0].rect, (Rect{0, bottom(steps) - 38, right(steps), 38}));
        EXPECT_EQ(foot[1].rect.x, 0);
        EXPECT_LE(foot[1].rect.right(), foot[2].rect.x);
        EXPECT_EQ(foot[2].rect.right(), right(steps));
        for (const Rect& side : {leftTile(steps).rect, rightTile(steps).rect}) {
            EXPECT_EQ(side.y, topHeight);
            EXPECT_EQ(side.bottom(), foot[0].rect.y);
        }
        EXPECT_EQ(leftTile(steps).rect.right(), trackArea(steps).x);
        EXPECT_EQ(rightTile(steps).rect.x, trackArea(steps).right());
    }
}

TEST(PlaylistLayout, OpensMenusUpwardsFromTheirButtons)
{
    // clang-format off
    const std::tuple<Menu, std::string_view, std::string_view, std::string_view, std::size_t> rows[] = {
        {Menu::add, "PLAYLIST_ADD_MENU_BAR", "PLAYLIST_ADD_URL", "PLAYLIST_ADD_FILE", 3},
        {Menu::remove, "PLAYLIST_REMOVE_MENU_BAR", "PLAYLIST_REMOVE_MISC",
         "PLAYLIST_REMOVE_SELECTED", 4},
        {Menu::selection, "PLAYLIST_SELECT_MENU_BAR", "PLAYLIST_INVERT_SELECTION",
         "PLAYLIST_SELECT_ALL", 3},
        {Menu::misc, "PLAYLIST_MISC_MENU_BAR", "PLAYLIST_SORT_LIST", "PLAYLIST_MISC_OPTIONS", 3},
        {Menu::list, "PLAYLIST_LIST_BAR", "PLAYLIST_NEW_LIST", "PLAYLIST_LOAD_LIST", 3},
    };
    // clang-format on
    constexpr Steps steps(1, 2);
    for (const auto& [menu, bar, first, last, count] : rows) {
        const Rect button = menuButton(menu, steps);
        const auto entries = menuEntries(menu, steps);
        ASSERT_EQ(entries.size(), count);
        EXPECT_EQ(entries.front().sprite, first);
        EXPECT_EQ(entries.back(), (MenuEntry{last, button}));
        for (std::size_t i = 1; i < count; ++i)
            EXPECT_EQ(entries[i - 1].rect.bottom(), entries[i].rect.y);
        const Rect beside{button.x - 3, entries.front().rect.y, 3, 18 * static_cast<int>(count)};
        EXPECT_EQ(menuBar(menu, steps), (Piece{bar, beside, false}));
    }
}

TEST(PlaylistLayout, TurnsTheScrollValueIntoAPlaceAndBack)
{
    constexpr Steps steps(0, 2);
    const std::pair<double, int> rows[] = {
        {0,          20 },
        {0.5,        69 },
        {0.999,      117},
        {1,          118},
        {7,          118},
        {infinity,   118},
        {-infinity,  20 },
        {notANumber, 20 },
    };
    for (const auto& [value, y] : rows)
        EXPECT_EQ(scrollHandleY(value, steps), y) << value;
    for (const double grabbed : {0.0, 5.5, 18.0})
        for (int y = 20; y <= 118; ++y)
            ASSERT_EQ(scrollHandleY(scrollValue(y + grabbed + 0.001, grabbed, steps), steps), y);
    EXPECT_EQ(scrollValue(infinity, 3, steps), 1);
    EXPECT_EQ(scrollValue(infinity, infinity, steps), 0);
    EXPECT_EQ(scrollValue(notANumber, 3, steps), 0);
}

TEST(PlaylistLayout, ResizesInTheNearestWholeSteps)
{
    const std::tuple<double, double, Steps> rows[] = {
        {12,         14,       {3, 3}            },
        {12.5,       14.5,     {4, 4}            },
        {13,         15,       {4, 4}            },
        {-12.5,      -14.5,    {3, 3}            },
        {-13,        -15,      {2, 2}            },
        {-1000,      -1000,    {0, 0}            },
        {1e300,      1e300,    {largest, largest}},
        {notANumber, 0,        {0, 3}            },
        {0,          infinity, {3, 0}            },
    };
    for (const auto& [dx, dy, expected] : rows)
        EXPECT_EQ(stepsAfterDrag({3, 3}, dx, dy), expected) << dx << ", " << dy;
}

TEST(PlaylistLayout, FindsTheLargestWindowWithinASize)
{
    const std::tuple<double, double, Steps> rows[] = {
        {274,        115,      {0, 0}      },
        {275,        116,      {0, 0}      },
        {300,        145,      {1, 1}      },
        {299.9,      174,      {0, 2}      },
        {-1e300,     1e300,    {0, largest}},
        {notANumber, infinity, {0, 0}      },
    };
    for (const auto& [width, height, expected] : rows)
        EXPECT_EQ(stepsForPixelSize(width, height), expected) << width << " x " << height;
}

TEST(PlaylistScroll, FindsTheFirstVisibleRowOfAPosition)
{
    using namespace PlaylistScroll;
    const std::tuple<double, int, int, int> rows[] = {
        {0,          20,       4,        0      },
        {100,        20,       4,        16     },
        {50,         20,       4,        8      },
        {3.1249,     20,       4,        0      },
        {3.125,      20,       4,        1      }, // half a row rounds up
        {100,        4,        4,        0      },
        {100,        3,        4,        0      },
        {100,        0,        4,        0      },
        {-5,         20,       4,        0      },
        {250,        20,       4,        16     },
        {infinity,   20,       4,        16     },
        {infinity,   4,        4,        0      },
        {-infinity,  20,       4,        0      },
        {notANumber, 20,       4,        0      },
        {100,        largest,  0,        largest},
        {100,        largest,  smallest, largest},
        {100,        smallest, largest,  0      },
    };
    for (const auto& [position, count, visibleRows, expected] : rows)
        EXPECT_EQ(offset(position, count, visibleRows), expected)
            << position << " of " << count << " in " << visibleRows;
}

TEST(PlaylistScroll, ShowsNoRowsBeyondTheLast)
{
    using namespace PlaylistScroll;
    EXPECT_EQ(visibleRange(100, 20, 4), (Rows{16, 20}));
    EXPECT_EQ(visibleRange(50, 20, 4), (Rows{8, 12}));
    EXPECT_EQ(visibleRange(50, 3, 4), (Rows{0, 3}));
    EXPECT_EQ(visibleRange(0, 0, 4), (Rows{0, 0}));
    EXPECT_EQ(visibleRange(100, largest, 4), (Rows{largest - 4, largest}));
    EXPECT_EQ(visibleRange(0, -3, 4), (Rows{0, 0}));
}

TEST(PlaylistScroll, SnapsTheHandleToWholeRows)
{
    using namespace PlaylistScroll;
    const std::tuple<double, int, double> rows[] = {
        {0,          7,  0   },
        {16,         7,  0   },
        {17,         7,  0.33}, // the first of three rows
        {60,         7,  0.67},
        {100,        7,  1   },
        {300,        7,  1   },
        {-300,       7,  0   },
        {infinity,   7,  1   },
        {notANumber, 7,  0   },
        {50,         4,  0   }, // all rows show
        {50,         -1, 0   },
    };
    for (const auto& [position, count, expected] : rows)
        EXPECT_EQ(handleValue(position, count, 4), expected) << position << " of " << count;
}

TEST(PlaylistScroll, MovesByTheWheelInPixelsOfTheList)
{
    using namespace PlaylistScroll;
    EXPECT_EQ(positionAfterWheel(13, 0, 10), 10);
    EXPECT_EQ(positionAfterWheel(-26, 50, 10), 30);
    EXPECT_EQ(positionAfterWheel(1000, 50, 10), 100);
    EXPECT_EQ(positionAfterWheel(-1000, 50, 10), 0);
    EXPECT_EQ(positionAfterWheel(infinity, 50, 10), 100);
    EXPECT_EQ(positionAfterWheel(notANumber, 50, 10), 0);
    EXPECT_EQ(positionAfterWheel(13, 50, 0), 0);
    EXPECT_GT(positionAfterWheel(13, 0, largest), 0);
}

TEST(PlaylistScroll, MovesByRows)
{
    using namespace PlaylistScroll;
    EXPECT_EQ(positionAfterScrolling(1, 0, 8, 4), 25);
    EXPECT_EQ(positionAfterScrolling(-1, 50, 8, 4), 25);
    EXPECT_EQ(positionAfterScrolling(-9, 50, 8, 4), 0);
    EXPECT_EQ(positionAfterScrolling(9, 50, 8, 4), 100);
    EXPECT_EQ(positionAfterScrolling(largest, 100, largest, 4), 100);
    EXPECT_EQ(positionAfterScrolling(smallest, 100, largest, 4), 0);
    EXPECT_EQ(positionAfterScrolling(1, 50, 4, 4), 0);
}

TEST(PlaylistScroll, FindsEveryRowAgainFromItsPosition)
{
    using namespace PlaylistScroll;
    for (const int count : {5, 7, 64, 1000, 12345})
        for (int row = 0; row <= overflow(count, 4); ++row) {
            const double position = positionAfterScrolling(row, 0, count, 4);
            ASSERT_EQ(offset(position, count, 4), row) << count;
            const double back = positionAfterScrolling(-1, position, count, 4);
            ASSERT_EQ(offset(back, count, 4), std::max(row - 1, 0)) << count;
        }
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
