#include "SkinKit/Windows/Playlist/PlaylistScroll.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <limits>

using namespace SkinKit::PlaylistScroll;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr int smallest = std::numeric_limits<int>::min();
constexpr int largest = std::numeric_limits<int>::max();

}

TEST(PlaylistScroll, FindsTheFirstVisibleRowOfAPosition)
{
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
    EXPECT_EQ(visibleRange(100, 20, 4), (Rows{16, 20}));
    EXPECT_EQ(visibleRange(50, 20, 4), (Rows{8, 12}));
    EXPECT_EQ(visibleRange(50, 3, 4), (Rows{0, 3}));
    EXPECT_EQ(visibleRange(0, 0, 4), (Rows{0, 0}));
    EXPECT_EQ(visibleRange(100, largest, 4), (Rows{largest - 4, largest}));
    EXPECT_EQ(visibleRange(0, -3, 4), (Rows{0, 0}));
}

TEST(PlaylistScroll, SnapsTheHandleToWholeRows)
{
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
    for (const int count : {5, 7, 64, 1000, 12345})
        for (int row = 0; row <= overflow(count, 4); ++row) {
            const double position = positionAfterScrolling(row, 0, count, 4);
            ASSERT_EQ(offset(position, count, 4), row) << count;
            const double back = positionAfterScrolling(-1, position, count, 4);
            ASSERT_EQ(offset(back, count, 4), std::max(row - 1, 0)) << count;
        }
}
