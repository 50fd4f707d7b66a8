#include "SkinKit/Windows/Main/MainSliders.h"

#include "SkinKit/Base/Check.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace SkinKit::MainSliders {
namespace {

struct PlacedToggle {
    ToggleFrame frame;
    ToggleSprites sprites;
};

// The words "selected" and "depressed" come in either order in the sprite table, and so here.
// clang-format off
constexpr PlacedToggle toggles[] = {
    {{164, 89, 47, 15}, {"MAIN_SHUFFLE_BUTTON",            "MAIN_SHUFFLE_BUTTON_SELECTED",
                         "MAIN_SHUFFLE_BUTTON_DEPRESSED",  "MAIN_SHUFFLE_BUTTON_SELECTED_DEPRESSED"}},
    {{210, 89, 28, 15}, {"MAIN_REPEAT_BUTTON",             "MAIN_REPEAT_BUTTON_SELECTED",
                         "MAIN_REPEAT_BUTTON_DEPRESSED",   "MAIN_REPEAT_BUTTON_SELECTED_DEPRESSED"}},
    {{219, 58, 23, 12}, {"MAIN_EQ_BUTTON",                 "MAIN_EQ_BUTTON_SELECTED",
                         "MAIN_EQ_BUTTON_DEPRESSED",       "MAIN_EQ_BUTTON_DEPRESSED_SELECTED"}},
    {{242, 58, 23, 12}, {"MAIN_PLAYLIST_BUTTON",           "MAIN_PLAYLIST_BUTTON_SELECTED",
                         "MAIN_PLAYLIST_BUTTON_DEPRESSED", "MAIN_PLAYLIST_BUTTON_DEPRESSED_SELECTED"}},
};
// clang-format on

}

int Slider::thumbX(double fraction) const
{
    return origin.x + static_cast<int>(std::lround(clamped(fraction, 1) * travel));
}

double Slider::fractionForPointerX(double x) const
{
    if (travel <= 0)
        return 0;
    return clamped((x - origin.x - thumbSize.width / 2.0) / travel, 1);
}

int volumeFrame(float level)
{
    const float product = level * static_cast<float>(frameCount);
    check(std::isfinite(product), "a volume must be finite");
    constexpr float last = frameCount - 1;
    return static_cast<int>(std::clamp(std::round(product) - 1, 0.0F, last));
}

int balanceFrame(float value)
{
    constexpr int last = frameCount - 1;
    // In single precision throughout, as the volume above: in double some thirds of the frames
    // would begin one step later.
    const auto distance = static_cast<float>(clamped(std::fabs(value), 1));
    return static_cast<int>(std::floor(distance * static_cast<float>(last)));
}

float balanceForFraction(double fraction)
{
    return static_cast<float>(2 * clamped(fraction, 1) - 1);
}

double fractionForBalance(float value)
{
    return clamped((static_cast<double>(value) + 1) / 2, 1);
}

float snappedBalance(float value)
{
    return std::fabs(value) < 0.25F ? 0 : value;
}

ShadeSegment shadeSegment(double fraction)
{
    if (fraction >= 0.75)
        return ShadeSegment::right;
    return fraction >= 0.25 ? ShadeSegment::center : ShadeSegment::left;
}

std::string_view shadePositionThumbName(double fraction)
{
    if (fraction >= 0.66)
        return "MAIN_SHADE_POSITION_THUMB_RIGHT";
    return fraction > 0.33 ? "MAIN_SHADE_POSITION_THUMB" : "MAIN_SHADE_POSITION_THUMB_LEFT";
}

ToggleFrame frame(Toggle toggle)
{
    return toggles[static_cast<int>(toggle)].frame;
}

std::string_view spriteName(Toggle toggle, ToggleState state)
{
    return toggles[static_cast<int>(toggle)].sprites.name(state);
}

}
