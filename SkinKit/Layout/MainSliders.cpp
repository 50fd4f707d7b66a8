#include "SkinKit/Layout/MainSliders.h"

#include "SkinKit/Platform/Check.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace SkinKit::MainSliders {
namespace {

// 0 … 1, not-a-number being 0.
double clampedFraction(double value)
{
    return value > 0 ? std::min(value, 1.0) : 0;
}

struct ToggleSprites {
    ToggleFrame frame;
    std::string_view released, selected, pressed, selectedPressed;
};

// The words "selected" and "depressed" stand in either order in the sprite table; so they do here.
// clang-format off
constexpr ToggleSprites toggles[] = {
    {{164, 89, 47, 15}, "MAIN_SHUFFLE_BUTTON",            "MAIN_SHUFFLE_BUTTON_SELECTED",
                        "MAIN_SHUFFLE_BUTTON_DEPRESSED",  "MAIN_SHUFFLE_BUTTON_SELECTED_DEPRESSED"},
    {{210, 89, 28, 15}, "MAIN_REPEAT_BUTTON",             "MAIN_REPEAT_BUTTON_SELECTED",
                        "MAIN_REPEAT_BUTTON_DEPRESSED",   "MAIN_REPEAT_BUTTON_SELECTED_DEPRESSED"},
    {{219, 58, 23, 12}, "MAIN_EQ_BUTTON",                 "MAIN_EQ_BUTTON_SELECTED",
                        "MAIN_EQ_BUTTON_DEPRESSED",       "MAIN_EQ_BUTTON_DEPRESSED_SELECTED"},
    {{242, 58, 23, 12}, "MAIN_PLAYLIST_BUTTON",           "MAIN_PLAYLIST_BUTTON_SELECTED",
                        "MAIN_PLAYLIST_BUTTON_DEPRESSED", "MAIN_PLAYLIST_BUTTON_DEPRESSED_SELECTED"},
};
// clang-format on

}

int Slider::thumbX(double fraction) const
{
    return origin.x + static_cast<int>(std::lround(clampedFraction(fraction) * travel));
}

double Slider::fractionForPointerX(double x) const
{
    if (travel <= 0)
        return 0;
    return clampedFraction((x - origin.x - thumbSize.width / 2.0) / travel);
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
    const auto distance = static_cast<float>(clampedFraction(std::fabs(value)));
    return static_cast<int>(std::floor(distance * static_cast<float>(last)));
}

Rect frameRect(const Rect& strip, int frame)
{
    check(frame >= 0 && frame < INT_MAX / frameHeight / 2, "a frame out of range");
    return {strip.x, strip.y + frameHeight * frame, strip.width, visibleFrameRows};
}

float balanceForFraction(double fraction)
{
    return static_cast<float>(2 * clampedFraction(fraction) - 1);
}

double fractionForBalance(float value)
{
    return clampedFraction((static_cast<double>(value) + 1) / 2);
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
    const auto& sprites = toggles[static_cast<int>(toggle)];
    if (state.selected)
        return state.pressed ? sprites.selectedPressed : sprites.selected;
    return state.pressed ? sprites.pressed : sprites.released;
}

}
