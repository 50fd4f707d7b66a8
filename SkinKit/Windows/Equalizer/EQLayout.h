#pragma once

#include "SkinKit/Graphics/Geometry.h"
#include "SkinKit/Sprites/SkinSprites.h"

#include <array>

// Where things sit in the equalizer window, as classic skins are painted for it, and how the value
// of a slider becomes a gain, a place or a frame and back. Window pixels at scale 1, origin top
// left.
//
// A slider's value runs from 0 to 100, with 50 for 0 dB; a gain from -12 to +12 dB. Values beyond
// count as the nearer end, not-a-number as the lower one.
namespace SkinKit::EQLayout {

inline constexpr Size windowSize{275, 116};
inline constexpr Size shadeSize{275, 14};
inline constexpr int titleBarHeight = 14;

// clang-format off
//                                   x   y    w   h
inline constexpr Rect shadeButton  {254,  3,   9,  9};
inline constexpr Rect closeButton  {264,  3,   9,  9};
inline constexpr Rect onButton     { 14, 18,  26, 12};
inline constexpr Rect autoButton   { 40, 18,  32, 12};
inline constexpr Rect presetsButton{217, 18,  44, 12};
inline constexpr Rect graph        { 86, 17, 113, 19};
inline constexpr Rect plus12       { 45, 36,  22,  8};  // labels of the scale
inline constexpr Rect zero         { 45, 64,  22,  8};
inline constexpr Rect minus12      { 45, 95,  22,  8};
inline constexpr Rect bandStrip    { 78, 38, 176, 63};  // all ten band sliders
// clang-format on
inline constexpr std::array titleButtonRects{shadeButton, closeButton};

// The sliders: the preamp's by itself, the bands' side by side in their strip.
inline constexpr int bandCount = 10;
inline constexpr int bandSpacing = 18;
inline constexpr Size bandSize{14, 63};
inline constexpr Point preampOrigin{21, 38};
static_assert((bandCount - 1) * bandSpacing + bandSize.width == bandStrip.width);
static_assert(bandSize.height == bandStrip.height);

inline constexpr int sliderHeight = 62; // of which the thumb uses all
inline constexpr Size thumbSize{11, 11};
inline constexpr int thumbInsetX = 1;
inline constexpr int thumbTravel = sliderHeight - thumbSize.height;

inline constexpr double maxValue = 100;
inline constexpr double midValue = maxValue / 2;
inline constexpr double snapDistance = 5;
inline constexpr float maxGain = 12; // and as much below zero

using SliderFrames::bandFrameRect;
using SliderFrames::frameCount;
using SliderFrames::framePitch;
using SliderFrames::framesInRow;
static_assert(bandSize == SliderFrames::bandFrameSize);

// The value held within 0 … 100.
constexpr double clampedValue(double value)
{
    return clamped(value, maxValue);
}

// Top left corner of a band's slider, 0 … 9 from the left; an index beyond is that of the nearer
// end.
constexpr Point bandOrigin(int index)
{
    return {bandStrip.x + bandSpacing * clamped(index, 0, bandCount - 1), bandStrip.y};
}

// The band in whose column `x` lies; to the sides of the strip that of the nearer end. Band 0 for
// an `x` that is not finite.
int bandIndexAtX(double x);

// Between a gain in decibels and a slider's value.
double valueForGain(float gain);
float gainForValue(double value);

// The middle when the value is nearer to it than the snap distance, else the value as it is.
double snapped(double value);

// The frame of the background that shows a value.
int frameForValue(double value);

// The top of the thumb below the top of its slider: 0 for the highest value.
int thumbYForValue(double value);
// The value that puts the middle of the thumb under a pointer `y` below the top of the slider.
double valueForPointerY(double y);

}
