#include "SkinKit/Windows/Playlist/PlaylistLayout.h"
#include "tests/support/Table.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace SkinKit;
using namespace SkinKit::PlaylistLayout;
using support::expectTable;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr int smallest = std::numeric_limits<int>::min();
constexpr int largest = std::numeric_limits<int>::max();

}

TEST(PlaylistLayout, ClosesTheFrameAtEverySize)
{
    EXPECT_EQ(Steps(-1, smallest), Steps::zero());
    for (const int count : {0, 1, 2, 3, 8, largest}) {
        const Steps steps(count, count);
        int x = 0;
        for (const Piece& piece : topRow(false, steps)) {
            ASSERT_EQ(piece.rect, (Rect{x, 0, piece.rect.width, topHeight})) << piece.sprite;
            x = piece.rect.right();
        }
        EXPECT_EQ(x, right(steps));
        EXPECT_LE(bottomRow(steps)[1].rect.right(), bottomRow(steps)[2].rect.x);
        EXPECT_EQ(visualizerBackground(steps).has_value(), count >= 3);
        EXPECT_EQ(menuEntries(Menu::remove, steps).back().rect, menuButton(Menu::remove, steps));
    }
}

// clang-format off
TEST(PlaylistLayout, TurnsSizesIntoRowsAndBack)
{
    expectTable<int, int>([](int steps) { return visibleRows({0, steps}); }, {
        {0, 4}, {1, 6}, {3, 11}, {10, 26},
    });
    using Pixels = std::pair<double, double>;
    expectTable<Pixels, Steps>(
        [](Pixels by) { return stepsAfterDrag({3, 3}, by.first, by.second); }, {
        {{12, 14}, {3, 3}},         {{12.5, 14.5}, {4, 4}}, {{13, 15}, {4, 4}},
        {{-12.5, -14.5}, {3, 3}},   {{-13, -15}, {2, 2}},   {{-1000, -1000}, {0, 0}},
        {{1e300, 1e300}, {largest, largest}},               {{NAN, infinity}, {0, 0}},
    });
    expectTable<Pixels, Steps>([](Pixels of) { return stepsForPixelSize(of.first, of.second); }, {
        {{274, 115}, {0, 0}}, {{300, 145}, {1, 1}}, {{299.9, 174}, {0, 2}},
        {{NAN, infinity}, {0, 0}},
    });
}

TEST(PlaylistLayout, TurnsTheScrollValueIntoAPositionAndBack)
{
    constexpr Steps steps(0, 2);
    expectTable<double, int>([&](double value) { return scrollHandleY(value, steps); }, {
        {0, 20}, {0.5, 69}, {0.999, 117}, {1, 118}, {7, 118}, {-infinity, 20}, {NAN, 20},
    });
    for (const double grabbed : {0.0, 5.5, 18.0})
        for (int y = 20; y <= 118; ++y)
            ASSERT_EQ(scrollHandleY(scrollValue(y + grabbed + 0.001, grabbed, steps), steps), y);
    EXPECT_EQ(scrollValue(infinity, 3, steps), 1);
    EXPECT_EQ(scrollValue(NAN, 3, steps), 0);
}

TEST(PlaylistScroll, FindsTheFirstVisibleRowOfAPosition)
{
    using namespace PlaylistScroll;
    expectTable<double, int>([](double position) { return offset(position, 20, 4); }, {
        {-5, 0}, {0, 0}, {3.1249, 0}, {3.125, 1}, {50, 8}, {100, 16}, {250, 16}, {NAN, 0},
    });
    EXPECT_EQ(offset(infinity, 4, 4), 0);
    EXPECT_EQ(offset(100, largest, smallest), largest);
    expectTable<int, Rows>([](int count) { return visibleRange(100, count, 4); }, {
        {20, {16, 20}}, {3, {0, 3}}, {0, {0, 0}}, {-3, {0, 0}}, {largest, {largest - 4, largest}},
    });
    for (const int count : {5, 7, 64, 1000})
        for (int row = 0; row <= overflow(count, 4); ++row) {
            const double position = positionAfterScrolling(row, 0, count, 4);
            ASSERT_EQ(offset(position, count, 4), row) << count;
            const double back = positionAfterScrolling(-1, position, count, 4);
            ASSERT_EQ(offset(back, count, 4), std::max(row - 1, 0)) << count;
        }
}

TEST(PlaylistScroll, MovesByHandleWheelAndRows)
{
    using namespace PlaylistScroll;
    expectTable<double, double>([](double position) { return handleValue(position, 7, 4); }, {
        {0, 0}, {16, 0}, {17, 0.33}, {60, 0.67}, {100, 1}, {300, 1}, {NAN, 0},
    });
    EXPECT_EQ(handleValue(50, 4, 4), 0); // all rows are visible
    expectTable<double, double>([](double by) { return positionAfterWheel(by, 50, 10); }, {
        {13, 60}, {-26, 30}, {1000, 100}, {-1000, 0}, {NAN, 0},
    });
    EXPECT_EQ(positionAfterWheel(13, 50, 0), 0);
    expectTable<int, double>([](int by) { return positionAfterScrolling(by, 50, 8, 4); }, {
        {1, 75}, {-1, 25}, {-9, 0}, {9, 100}, {largest, 100},
    });
    EXPECT_EQ(positionAfterScrolling(1, 50, 4, 4), 0);
}

TEST(PlaylistShadeLayout, CutsTheTitleBetweenTwoCharactersAsReadersSeeThem)
{
    const std::string letter = "e\u0301";                    // with its mark
    const std::string family = "\U0001F468\u200D\U0001F469"; // two people joined to one sign
    expectTable<std::pair<std::optional<std::string>, int>, std::string>(
        [](const auto& row) { return PlaylistShadeLayout::title(row.first, row.second); }, {
        {{std::nullopt, smallest},         "[No file]"},
        {{"abc", 85},                      "abc"},
        {{"abcd", 85},                     "ab…"},
        {{"abcd", 90},                     "abcd"},
        {{letter + letter + letter, 85},   letter + letter + letter},
        {{family + family + "xy", 85},     family + family + "…"},
        {{"\xFF\xFF\xFF\xFF", 85},         "\xFF\xFF…"},
        {{"a", 70},                        "…"},
        {{"", 66},                         ""}, // -0.8 is 0 characters
        {{"", 65},                         "…"},
    });
    expectTable<std::optional<double>, std::string_view>(
        [](auto seconds) { return PlaylistShadeLayout::timeString(seconds); }, {
        {{}, ""}, {0, "0:00"}, {65.9, "1:05"}, {754, "12:34"}, {1e9, "99:59"}, {NAN, "0:00"},
    });
}
// clang-format on
