#include "SkinKit/Sprites/SkinSprites.h"
#include "SkinKit/Windows/Main/MainSliders.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace SkinKit;
using namespace SkinKit::MainSliders;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr Slider allSliders[] = {volume,        balance,       position,
                                 shadePosition, eqShadeVolume, eqShadeBalance};

}

TEST(MainSliders, KeepTheThumbOnTheSlider)
{
    for (const Slider& slider : allSliders) {
        const int shortBy = slider == volume ? 3 : 0; // the volume thumb stops early
        EXPECT_EQ(slider.travel, slider.size.width - slider.thumbSize.width - shortBy);
        EXPECT_EQ(slider.thumbX(0), slider.origin.x);
        EXPECT_EQ(slider.thumbX(1), slider.origin.x + slider.travel);
    }
}

TEST(MainSliders, PlaceTheThumbAtTheNearestPixel)
{
    const std::tuple<Slider, double, int> rows[] = {
        {volume,         0.78,       147},
        {volume,         1.5,        158},
        {volume,         -1,         107},
        {volume,         notANumber, 107},
        {volume,         infinity,   158},
        {volume,         -infinity,  107},
        {volume,         0.5,        133}, // 25.5 rounds up
        {volume,         0.4999,     132},
        {position,       0.6,        147},
        {balance,        0.5,        189},
        {shadePosition,  0.5,        233},
        {eqShadeVolume,  1,          155},
        {eqShadeBalance, 1,          204},
    };
    for (const auto& [slider, fraction, expected] : rows)
        EXPECT_EQ(slider.thumbX(fraction), expected) << fraction;
    EXPECT_EQ(volume.thumbY(), 58);
    EXPECT_EQ(position.thumbY(), 72);
}

TEST(MainSliders, ReadTheValueUnderThePointer)
{
    const std::pair<double, double> rows[] = {
        {114,        0  },
        {165,        1  },
        {139.5,      0.5},
        {500,        1  },
        {-500,       0  },
        {infinity,   1  },
        {notANumber, 0  }
    };
    for (const auto& [x, expected] : rows)
        EXPECT_DOUBLE_EQ(volume.fractionForPointerX(x), expected) << x;
    for (const Slider& slider : allSliders)
        for (const double fraction : {0.0, 0.5, 1.0})
            EXPECT_DOUBLE_EQ(slider.fractionForPointerX(slider.origin.x + fraction * slider.travel +
                                                        slider.thumbSize.width / 2.0),
                             fraction);
    Slider stuck = volume;
    stuck.travel = 0;
    EXPECT_EQ(stuck.fractionForPointerX(1000), 0);
}

TEST(MainSliders, ChooseTheFrameOfAStrip)
{
    const std::tuple<float, int, int> rows[] = {
        {0,       0,  0 },
        {0.01F,   0,  0 },
        {0.0178F, 0,  0 },
        {0.05F,   0,  1 },
        {0.06F,   1,  1 },
        {0.5F,    13, 13},
        {0.78F,   21, 21},
        {0.99F,   27, 26},
        {1,       27, 27},
        {7,       27, 27},
        {-0.5F,   0,  13},
        {-1,      0,  27},
        {-7,      0,  27},
    };
    for (const auto& [value, volumeExpected, balanceExpected] : rows) {
        EXPECT_EQ(volumeFrame(value), volumeExpected) << value;
        EXPECT_EQ(balanceFrame(value), balanceExpected) << value;
    }
    EXPECT_EQ(balanceFrame(std::numeric_limits<float>::quiet_NaN()), 0);
    EXPECT_EQ(frameRect(Rect{9, 5, 38, 420}, 27), (Rect{9, 410, 38, 13}));
    EXPECT_EQ(frameRect(SkinSprites::byName("MAIN_BALANCE_BACKGROUND")->sprite, 2),
              (Rect{9, 30, 38, 13}));
    for (const float value : {std::numeric_limits<float>::infinity(), std::nanf("")})
        EXPECT_DEATH(static_cast<void>(volumeFrame(value)), "finite");
}

TEST(MainSliders, TurnBalanceIntoAFractionAndBack)
{
    const std::pair<double, float> rows[] = {
        {0,    -1   },
        {0.25, -0.5F},
        {0.5,  0    },
        {1,    1    }
    };
    for (const auto& [fraction, value] : rows) {
        EXPECT_EQ(balanceForFraction(fraction), value);
        EXPECT_EQ(fractionForBalance(value), fraction);
    }
    EXPECT_EQ(balanceForFraction(-3), -1);
    EXPECT_EQ(balanceForFraction(3), 1);
    EXPECT_EQ(balanceForFraction(notANumber), -1);
    EXPECT_EQ(fractionForBalance(-3), 0);
    EXPECT_EQ(fractionForBalance(3), 1);
    EXPECT_EQ(fractionForBalance(std::nanf("")), 0);
    for (const auto& [value, snapped] : {
             std::pair{-0.2F,   0.0F  },
             {0.2499F, 0.0F  },
             {0.25F,   0.25F },
             {-0.25F,  -0.25F},
             {0.9F,    0.9F  }
    })
        EXPECT_EQ(snappedBalance(value), snapped) << value;
}

TEST(MainSliders, SplitTheShadedSlidersIntoThree)
{
    const std::string_view left = "MAIN_SHADE_POSITION_THUMB_LEFT";
    const std::string_view centre = "MAIN_SHADE_POSITION_THUMB";
    const std::string_view right = "MAIN_SHADE_POSITION_THUMB_RIGHT";
    const std::tuple<double, ShadeSegment, std::string_view> rows[] = {
        {-1,         ShadeSegment::left,   left  },
        {0.249,      ShadeSegment::left,   left  },
        {0.25,       ShadeSegment::center, left  },
        {0.33,       ShadeSegment::center, left  },
        {0.331,      ShadeSegment::center, centre},
        {0.659,      ShadeSegment::center, centre},
        {0.66,       ShadeSegment::center, right },
        {0.749,      ShadeSegment::center, right },
        {0.75,       ShadeSegment::right,  right },
        {2,          ShadeSegment::right,  right },
        {notANumber, ShadeSegment::left,   left  },
    };
    for (const auto& [fraction, segment, thumb] : rows) {
        EXPECT_EQ(shadeSegment(fraction), segment) << fraction;
        EXPECT_EQ(shadePositionThumbName(fraction), thumb) << fraction;
    }
}

TEST(MainSliders, NameTogglesInTheWordOrderOfTheirSheet)
{
    const std::tuple<Toggle, std::string, std::string_view, Rect> rows[] = {
        {Toggle::shuffle,   "MAIN_SHUFFLE_BUTTON",  "_SELECTED_DEPRESSED", {164, 89, 47, 15}},
        {Toggle::repeatAll, "MAIN_REPEAT_BUTTON",   "_SELECTED_DEPRESSED", {210, 89, 28, 15}},
        {Toggle::equalizer, "MAIN_EQ_BUTTON",       "_DEPRESSED_SELECTED", {219, 58, 23, 12}},
        {Toggle::playlist,  "MAIN_PLAYLIST_BUTTON", "_DEPRESSED_SELECTED", {242, 58, 23, 12}},
    };
    for (const auto& [toggle, base, both, rect] : rows) {
        EXPECT_EQ(frame(toggle), rect) << base;
        EXPECT_EQ(spriteName(toggle, {}), base);
        EXPECT_EQ(spriteName(toggle, {.selected = true}), base + "_SELECTED");
        EXPECT_EQ(spriteName(toggle, {.pressed = true}), base + "_DEPRESSED");
        EXPECT_EQ(spriteName(toggle, {.selected = true, .pressed = true}),
                  base + std::string(both));
        for (const bool selected : {false, true})
            for (const bool pressed : {false, true}) {
                const auto sprite = SkinSprites::byName(spriteName(toggle, {selected, pressed}));
                ASSERT_TRUE(sprite) << base;
                EXPECT_EQ(sprite->sprite.rect().size(), rect.size()) << base;
            }
    }
}
