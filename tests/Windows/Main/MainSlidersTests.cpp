#include "SkinKit/Sprites/SkinSprites.h"
#include "SkinKit/Windows/Main/MainSliders.h"
#include "tests/support/Table.h"

#include <cmath>
#include <limits>

using namespace SkinKit;
using namespace SkinKit::MainSliders;
using support::expectTable;

namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();

}

// clang-format off
TEST(MainSliders, PlaceTheThumbAtTheNearestPixel)
{
    expectTable<double, int>([](double fraction) { return volume.thumbX(fraction); }, {
        {0, 107}, {0.4999, 132}, {0.5, 133}, {0.78, 147}, {1, 158}, {1.5, 158}, {-1, 107},
        {infinity, 158}, {-infinity, 107}, {NAN, 107},
    });
    EXPECT_EQ(position.thumbX(0.6), 147);
    EXPECT_EQ(shadePosition.thumbX(0.5), 233);
}

TEST(MainSliders, ReadTheValueUnderThePointer)
{
    expectTable<double, double>([](double x) { return volume.fractionForPointerX(x); }, {
        {-500, 0}, {114, 0}, {139.5, 0.5}, {165, 1}, {500, 1}, {infinity, 1}, {NAN, 0},
    });
    for (const auto& slider : {balance, shadePosition, eqShadeVolume, eqShadeBalance})
        EXPECT_EQ(slider.fractionForPointerX(slider.thumbX(0.5) + slider.thumbSize.width / 2.0),
                  0.5);
}

TEST(MainSliders, ChooseTheFrameOfAStrip)
{
    expectTable<float, int>(volumeFrame, {
        {-1, 0}, {0, 0}, {0.05F, 0}, {0.06F, 1}, {0.5F, 13}, {0.78F, 21}, {0.99F, 27}, {7, 27},
    });
    expectTable<float, int>(balanceFrame, {
        {-7, 27}, {-0.5F, 13}, {0, 0}, {0.01F, 0}, {0.05F, 1}, {0.99F, 26}, {1, 27}, {NAN, 0},
    });
    EXPECT_EQ(frameRect(Rect{9, 5, 38, 420}, 27), (Rect{9, 410, 38, 13}));
    EXPECT_DEATH(static_cast<void>(volumeFrame(NAN)), "finite");
}

TEST(MainSliders, TurnBalanceIntoAFractionAndBack)
{
    expectTable<double, float>(balanceForFraction, {
        {-3, -1}, {0, -1}, {0.25, -0.5F}, {0.5, 0}, {1, 1}, {3, 1}, {NAN, -1},
    });
    expectTable<float, double>(fractionForBalance, {
        {-3, 0}, {-1, 0}, {-0.5F, 0.25}, {0, 0.5}, {1, 1}, {3, 1}, {NAN, 0},
    });
    expectTable<float, float>(snappedBalance, {
        {-0.2F, 0}, {0.2499F, 0}, {0.25F, 0.25F}, {-0.25F, -0.25F}, {0.9F, 0.9F},
    });
}

TEST(MainSliders, SplitTheShadedSlidersIntoThree)
{
    using enum ShadeSegment;
    expectTable<double, ShadeSegment>(shadeSegment, {
        {-1, left}, {0.249, left}, {0.25, center}, {0.749, center}, {0.75, right}, {2, right},
        {NAN, left},
    });
    expectTable<double, std::string_view>(shadePositionThumbName, {
        {-1,    "MAIN_SHADE_POSITION_THUMB_LEFT"}, {0.33, "MAIN_SHADE_POSITION_THUMB_LEFT"},
        {0.331, "MAIN_SHADE_POSITION_THUMB"},      {0.659, "MAIN_SHADE_POSITION_THUMB"},
        {0.66,  "MAIN_SHADE_POSITION_THUMB_RIGHT"}, {NAN, "MAIN_SHADE_POSITION_THUMB_LEFT"},
    });
}
// clang-format on

TEST(MainSliders, NameASpriteForEachStateOfAToggle)
{
    for (const auto toggle :
         {Toggle::shuffle, Toggle::repeatAll, Toggle::equalizer, Toggle::playlist})
        for (const bool selected : {false, true})
            for (const bool pressed : {false, true}) {
                const auto name = spriteName(toggle, {selected, pressed});
                EXPECT_EQ(name.contains("_SELECTED"), selected) << name;
                EXPECT_EQ(name.contains("_DEPRESSED"), pressed) << name;
                EXPECT_EQ(SkinSprites::byName(name)->sprite.rect().size(), frame(toggle).size());
            }
}
