#include "SkinKit/Sprites/SkinSprites.h"
#include "SkinKit/Windows/Equalizer/EQLayout.h"
#include "tests/support/Table.h"

#include <climits>
#include <cmath>
#include <limits>

using namespace SkinKit;
using namespace SkinKit::EQLayout;
using support::expectTable;

namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();

}

// clang-format off
TEST(EQLayout, FindsTheBandUnderAPointer)
{
    expectTable<int, int>([](int index) { return bandOrigin(index).x; }, {
        {INT_MIN, 78}, {0, 78}, {1, 96}, {9, 240}, {INT_MAX, 240},
    });
    // The gap behind a slider is that slider's.
    expectTable<double, int>(bandIndexAtX, {
        {0, 0}, {78, 0}, {95.9, 0}, {96, 1}, {239.9, 8}, {240, 9}, {400, 9}, {-1e300, 0},
        {1e300, 9}, {infinity, 0}, {-infinity, 0}, {NAN, 0},
    });
}

TEST(EQLayout, TurnsGainsIntoValuesAndBack)
{
    expectTable<double, float>(gainForValue, {
        {0, -12}, {25, -6}, {50, 0}, {62.5, 3}, {100, 12}, {-1, -12}, {101, 12}, {NAN, -12},
    });
    expectTable<float, double>(valueForGain, {
        {-12, 0}, {-6, 25}, {0, 50}, {3, 62.5}, {12, 100}, {-13, 0}, {infinity, 100}, {NAN, 0},
    });
    expectTable<double, double>(snapped, {
        {45, 45}, {45.1, 50}, {54.9, 50}, {55, 55}, {0, 0}, {-7, -7}, {infinity, infinity},
    });
}

TEST(EQLayout, ShowsAValueByAFrameAndThePlaceOfTheThumb)
{
    // The frame 13.5 rounds up, the thumb's 25.5 down.
    expectTable<double, int>(frameForValue, {
        {-5, 0}, {1.85, 0}, {1.86, 1}, {50, 14}, {99.9, 27}, {1e300, 27}, {NAN, 0},
    });
    expectTable<double, int>(thumbYForValue, {
        {-5, 51}, {0, 51}, {0.1, 50}, {50, 25}, {99.9, 0}, {100, 0}, {infinity, 0}, {NAN, 51},
    });
    const Rect strip = SkinSprites::byName("EQ_SLIDER_BACKGROUND")->sprite.rect();
    expectTable<int, Rect>([&](int frame) { return bandFrameRect(strip, frame); }, {
        {INT_MIN, {13, 164, 14, 63}}, {13, {208, 164, 14, 63}}, {14, {13, 229, 14, 63}},
        {INT_MAX, {208, 229, 14, 63}},
    });
}

TEST(EQLayout, ReadsTheValueUnderThePointer)
{
    expectTable<double, double>(valueForPointerY, {
        {-infinity, 100}, {5.5, 100}, {31, 50}, {56.5, 0}, {500, 0}, {infinity, 0}, {NAN, 0},
    });
    for (int y = 0; y <= thumbTravel; ++y) // a little off the edge between two rows
        EXPECT_EQ(thumbYForValue(valueForPointerY(y + thumbSize.height / 2.0) - 0.001), y);
}
// clang-format on
