#pragma once

#include "SkinKit/Graphics/Geometry.h"
#include "SkinKit/Sprites/SkinSprites.h"

#include <string_view>

// The sliders and the toggle buttons of the main window: where they sit, as classic skins are
// painted for them, and how a value becomes a place or a frame and back. Window pixels at scale 1,
// origin top left.
namespace SkinKit::MainSliders {

// A horizontal slider: its background, and where its thumb goes on it.
struct Slider {
    Point origin; // top left of the background
    Size size;
    Size thumbSize;
    int thumbInsetY = 0; // the thumb's top below the origin
    int travel = 0;      // how far the thumb's left edge moves from 0 to 1

    bool operator==(const Slider&) const = default;

    constexpr Rect background() const { return {origin.x, origin.y, size.width, size.height}; }
    constexpr int thumbY() const { return origin.y + thumbInsetY; }

    // The thumb's left edge for a value of 0 … 1; values outside are clamped, not-a-number is 0.
    int thumbX(double fraction) const;
    // The value that puts the middle of the thumb under a pointer at `x`.
    double fractionForPointerX(double x) const;
};

// clang-format off
//                                       origin      size        thumb    inset  travel
inline constexpr Slider volume        {{107, 57}, { 68, 13}, {14, 11},  1,   51};  // ends 3 pixels short of the right end
inline constexpr Slider balance       {{177, 57}, { 38, 13}, {14, 11},  1,   24};
inline constexpr Slider position      {{ 16, 72}, {248, 10}, {29, 10},  0,  219};
inline constexpr Slider shadePosition {{226,  4}, { 17,  7}, { 3,  7},  0,   14};
inline constexpr Slider eqShadeVolume {{ 61,  4}, { 97,  6}, { 3,  7},  0,   94};
inline constexpr Slider eqShadeBalance{{164,  4}, { 43,  6}, { 3,  7},  0,   40};
// clang-format on

using SliderFrames::frameCount;
using SliderFrames::frameHeight;
using SliderFrames::frameRect;
using SliderFrames::visibleFrameRows;

// The frame for a volume of 0 … 1. A volume that is not finite is a programming error.
int volumeFrame(float level);
// The frame for a balance of -1 … 1: how far from the centre, whichever side.
int balanceFrame(float value);
// A frame's rectangle in its strip.
inline Rect frameRect(const Sprite& strip, int frame)
{
    return frameRect(strip.rect(), frame);
}

// Between a balance of -1 … 1 and a slider's value of 0 … 1.
float balanceForFraction(double fraction);
double fractionForBalance(float value);
// 0 within a quarter of the centre.
float snappedBalance(float value);

// Which of three thumbs the shaded sliders show.
enum class ShadeSegment { left, center, right };
ShadeSegment shadeSegment(double fraction);
std::string_view shadePositionThumbName(double fraction);

// The buttons that stay lit: where each sits, and its sprite.
enum class Toggle { shuffle, repeatAll, equalizer, playlist };
using ToggleFrame = Rect;

// How a toggle button looks.
struct ToggleState {
    bool selected = false; // lit
    bool pressed = false;
};

// The pictures of such a button.
struct ToggleSprites {
    std::string_view released, selected, pressed, selectedPressed;

    constexpr std::string_view name(ToggleState state) const
    {
        if (state.selected)
            return state.pressed ? selectedPressed : selected;
        return state.pressed ? pressed : released;
    }
};

ToggleFrame frame(Toggle toggle);
std::string_view spriteName(Toggle toggle, ToggleState state);

}
