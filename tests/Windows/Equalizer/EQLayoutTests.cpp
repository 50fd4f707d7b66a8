#include "SkinKit/Sprites/SkinSprites.h"
#include "SkinKit/Windows/Equalizer/EQLayout.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <string_view>

using namespace SkinKit;
using namespace SkinKit::EQLayout;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

}

TEST(EQLayout, KeepsEveryPartInsideTheWindowAndApartFromTheOthers)
{
    constexpr Rect preamp{preampOrigin.x, preampOrigin.y, bandSize.width, bandSize.height};
    const Rect parts[] = {shadeButton, closeButton, onButton, autoButton, presetsButton, graph,
                          plus12,      zero,        minus12,  bandStrip,  preamp};
    const Rect window{0, 0, windowSize.width, windowSize.height};
    for (const Rect& part : parts) {
        EXPECT_TRUE(contains(window, part)) << part.x << ", " << part.y;
        for (const Rect& other : parts)
            EXPECT_TRUE(&part == &other || intersection(part, other).isEmpty())
                << part.x << ", " << part.y << " and " << other.x << ", " << other.y;
    }
    for (const Rect& button : titleButtonRects)
        EXPECT_TRUE(contains(Rect{0, 0, shadeSize.width, titleBarHeight}, button));
}

TEST(EQLayout, GivesEachPartTheSizeOfItsSprite)
{
    const std::pair<std::string_view, Size> rows[] = {
        {"EQ_WINDOW_BACKGROUND", windowSize          },
        {"EQ_SHADE_BACKGROUND",  shadeSize           },
        {"EQ_ON_BUTTON",         onButton.size()     },
        {"EQ_AUTO_BUTTON",       autoButton.size()   },
        {"EQ_PRESETS_BUTTON",    presetsButton.size()},
        {"EQ_GRAPH_BACKGROUND",  graph.size()        },
        {"EQ_SLIDER_THUMB",      thumbSize           },
        {"EQ_CLOSE_BUTTON",      closeButton.size()  },
    };
    for (const auto& [sprite, size] : rows)
        EXPECT_EQ(SkinSprites::byName(sprite)->sprite.rect().size(), size) << sprite;
    EXPECT_EQ(EQLayout::shadeButton.size(), closeButton.size());
}

TEST(EQLayout, PlacesTheBandsSideBySide)
{
    EXPECT_EQ(bandOrigin(0), (Point{78, 38}));
    EXPECT_EQ(bandOrigin(1), (Point{96, 38}));
    EXPECT_EQ(bandOrigin(9), (Point{240, 38}));
    EXPECT_EQ(bandOrigin(9).x + bandSize.width, bandStrip.right());
    EXPECT_EQ(bandOrigin(INT_MIN), bandOrigin(0));
    EXPECT_EQ(bandOrigin(INT_MAX), bandOrigin(9));
}

TEST(EQLayout, FindsTheBandUnderAPointer)
{
    const std::pair<double, int> rows[] = {
        {0,          0},
        {78,         0},
        {95.9,       0},
        {96,         1}, // the gap behind a slider is that
                 // slider's
        {239.9,      8},
        {240,        9},
        {400,        9},
        {-1e300,     0},
        {1e300,      9},
        {infinity,   0}, // as any that is not finite
        {-infinity,  0},
        {notANumber, 0},
    };
    for (const auto& [x, expected] : rows)
        EXPECT_EQ(bandIndexAtX(x), expected) << x;
    for (int i = 0; i < bandCount; ++i)
        EXPECT_EQ(bandIndexAtX(bandOrigin(i).x), i);
}

TEST(EQLayout, TurnsGainsIntoValuesAndBack)
{
    const std::pair<double, float> rows[] = {
        {0,    -12},
        {25,   -6 },
        {50,   0  },
        {75,   6  },
        {100,  12 },
        {62.5, 3  },
    };
    for (const auto& [value, gain] : rows) {
        EXPECT_EQ(gainForValue(value), gain) << value;
        EXPECT_DOUBLE_EQ(valueForGain(gain), value) << gain;
    }
    for (float gain = -12; gain <= 12; gain += 0.1F)
        EXPECT_NEAR(gainForValue(valueForGain(gain)), gain, 1e-6F);

    for (const float gain : {-12.5F, -std::numeric_limits<float>::infinity(), std::nanf("")})
        EXPECT_EQ(valueForGain(gain), 0) << gain;
    for (const float gain : {12.5F, std::numeric_limits<float>::infinity()})
        EXPECT_EQ(valueForGain(gain), 100) << gain;
    for (const double value : {-1.0, -infinity, notANumber})
        EXPECT_EQ(gainForValue(value), -12) << value;
    for (const double value : {101.0, infinity})
        EXPECT_EQ(gainForValue(value), 12) << value;
}

TEST(EQLayout, SnapsToTheMiddle)
{
    const std::pair<double, double> rows[] = {
        {54.9,     50      },
        {55,       55      },
        {45.1,     50      },
        {45,       45      },
        {0,        0       },
        {-7,       -7      }, // left as it is, like all that does not snap
        {infinity, infinity},
    };
    for (const auto& [value, expected] : rows)
        EXPECT_EQ(snapped(value), expected) << value;
    EXPECT_TRUE(std::isnan(snapped(notANumber)));
}

TEST(EQLayout, ShowsAValueByAFrameAndThePlaceOfTheThumb)
{
    const std::tuple<double, int, int> rows[] = {
        {-5,         0,  51},
        {0,          0,  51},
        {0.1,        0,  50},
        {1.85,       0,  50},
        {1.86,       1,  50},
        {50,         14, 25}, // the frame 13.5 rounds up, the thumb's 25.5 down
        {99.9,       27, 0 },
        {100,        27, 0 },
        {1e300,      27, 0 },
        {infinity,   27, 0 },
        {-infinity,  0,  51},
        {notANumber, 0,  51},
    };
    for (const auto& [value, frame, thumbY] : rows) {
        EXPECT_EQ(frameForValue(value), frame) << value;
        EXPECT_EQ(thumbYForValue(value), thumbY) << value;
    }
}

TEST(EQLayout, FindsTheFramesInTwoRowsOfTheirSprite)
{
    const Rect strip = SkinSprites::byName("EQ_SLIDER_BACKGROUND")->sprite.rect();
    EXPECT_EQ(bandFrameRect(strip, 27), (Rect{208, 229, 14, 63}));
    EXPECT_EQ(bandFrameRect(strip, INT_MIN), bandFrameRect(strip, 0));
    EXPECT_EQ(bandFrameRect(strip, INT_MAX), bandFrameRect(strip, 27));
}

TEST(EQLayout, ReadsTheValueUnderThePointer)
{
    const std::pair<double, double> rows[] = {
        {-100,       100},
        {5.5,        100},
        {31,         50 },
        {56.5,       0  },
        {500,        0  },
        {-infinity,  100},
        {infinity,   0  },
        {notANumber, 0  },
    };
    for (const auto& [y, expected] : rows)
        EXPECT_DOUBLE_EQ(valueForPointerY(y), expected) << y;
}

TEST(EQLayout, KeepsTheThumbUnderThePointerThatDragsIt)
{
    for (int y = 0; y <= thumbTravel; ++y) {
        const double value = valueForPointerY(y + thumbSize.height / 2.0);
        EXPECT_NEAR(thumbYForValue(value), y, 1) << value; // a rounded value may round down
        // A little off the edge between two rows nothing rounds.
        EXPECT_EQ(thumbYForValue(value - 0.001), y) << value;
    }
}
