#pragma once

#include "SkinKit/Graphics/Geometry.h"
#include "SkinKit/Windows/Main/MainSliders.h"
#include "SkinKit/Windows/Main/MainWindowLayout.h"

#include <array>

// Where things sit in the main window when it is shaded, as classic skins are painted for it:
// window pixels, origin top left.
namespace SkinKit::MainShadeLayout {

inline constexpr Size size = MainWindowLayout::shadeSize;

// clang-format off
//                                             x  y  w  h
inline constexpr std::array<Rect, 4> buttonRects{{
                                           {   6, 3, 9, 9},    // options
                                           { 244, 3, 9, 9},    // minimize
                                           { 254, 3, 9, 9},    // shade
                                           { 264, 3, 9, 9}}};  // close
inline constexpr Point miniTimeOrigin      { 127, 4};
inline constexpr Rect  miniTimeHitArea     { 127, 4, 30, 6};
inline constexpr Rect  visualizerFrame     {  79, 5, 76, 5};
// clang-format on

inline constexpr int miniTimeImageWidth = 30;
inline constexpr std::array<int, 5> miniTimeCellX{1, 7, 12, 20, 25}; // in the image; a gap at 17

using MainWindowLayout::Transport;

constexpr Rect frame(Transport button)
{
    // clang-format off
    constexpr Rect frames[] = {
        {169, 2,  7, 10},  // previous
        {176, 2, 10, 10},  // play
        {186, 2,  9, 10},  // pause
        {195, 2,  9, 10},  // stop
        {204, 2, 10, 10},  // next
        {215, 2, 10, 10},  // eject
    };
    // clang-format on
    return frames[static_cast<int>(button)];
}

// The areas by which the window can't be dragged.
inline constexpr std::array<Rect, 13> dragExclusions{
    buttonRects[0],
    buttonRects[1],
    buttonRects[2],
    buttonRects[3],
    miniTimeHitArea,
    visualizerFrame,
    frame(Transport::previous),
    frame(Transport::play),
    frame(Transport::pause),
    frame(Transport::stop),
    frame(Transport::next),
    frame(Transport::eject),
    MainSliders::shadePosition.background(),
};

}
