#pragma once

#include "SkinKit/Graphics/Geometry.h"
#include "SkinKit/Windows/Main/MainSliders.h"

#include <array>
#include <string_view>

// Where things sit in the main window, as classic skins are painted for it: window pixels at scale
// 1, origin top left. The sliders and the toggle buttons are in MainSliders.
namespace SkinKit::MainWindowLayout {

inline constexpr Size size{275, 116};
inline constexpr Size shadeSize{275, 14};

// The letters of the clutter bar, from top to bottom: O, A, I, D, V.
enum class ClutterButton { mainMenu, alwaysOnTop, fileInfo, doubleSize, visualizer };

// clang-format off
//                                     x   y    w    h
inline constexpr Rect  titleBar      {  0,  0, 275,  14};
inline constexpr Rect  clutterBar    { 10, 22,   8,  43};
inline constexpr Rect  workIndicator { 24, 28,   3,   9};
inline constexpr Point playIndicator { 26, 28};
inline constexpr Rect  timeHitArea   { 39, 26,  59,  13};
inline constexpr Rect  visualizer    { 24, 43,  76,  16};
inline constexpr Rect  marquee       {111, 27, 154,   6};
inline constexpr Rect  marqueeHitArea{111, 24, 154,  12};
inline constexpr Point kbps          {111, 43};
inline constexpr Point khz           {156, 43};
inline constexpr Point mono          {212, 41};
inline constexpr Point stereo        {239, 41};
// clang-format on

// Minutes tens, minutes ones, seconds tens, seconds ones.
inline constexpr std::array<int, 4> digitXs{48, 60, 78, 90};
inline constexpr int digitY = 26;

// The buttons of the title bar, from left to right.
enum class TitleButton { options, minimize, shade, close };

// Where a button is drawn and clicked.
constexpr Rect rect(TitleButton button)
{
    constexpr int xs[] = {6, 244, 254, 264};
    return {xs[static_cast<int>(button)], 3, 9, 9};
}

// Where a button is drawn and clicked.
constexpr Rect rect(ClutterButton button)
{
    // clang-format off
    constexpr Rect rects[] = {
        {10, 25, 8, 8},  // O
        {10, 33, 8, 7},  // A
        {10, 40, 8, 7},  // I
        {10, 47, 8, 8},  // D
        {10, 55, 8, 7},  // V
    };
    // clang-format on
    return rects[static_cast<int>(button)];
}

// The button when it is lit.
constexpr std::string_view spriteName(ClutterButton button)
{
    constexpr std::string_view names[] = {
        "MAIN_CLUTTER_BAR_BUTTON_O_SELECTED", "MAIN_CLUTTER_BAR_BUTTON_A_SELECTED",
        "MAIN_CLUTTER_BAR_BUTTON_I_SELECTED", "MAIN_CLUTTER_BAR_BUTTON_D_SELECTED",
        "MAIN_CLUTTER_BAR_BUTTON_V_SELECTED"};
    return names[static_cast<int>(button)];
}

// The buttons of the bottom row, from left to right.
enum class Transport { previous, play, pause, stop, next, eject };
inline constexpr std::array allTransports{Transport::previous, Transport::play, Transport::pause,
                                          Transport::stop,     Transport::next, Transport::eject};

// Where a button is drawn and clicked.
constexpr Rect rect(Transport button)
{
    // clang-format off
    constexpr Rect rects[] = {
        { 16, 88, 23, 18},  // previous
        { 39, 88, 23, 18},  // play
        { 62, 88, 23, 18},  // pause
        { 85, 88, 23, 18},  // stop
        {108, 88, 22, 18},  // next, a column narrower than its sprite
        {136, 89, 22, 16},  // eject
    };
    // clang-format on
    return rects[static_cast<int>(button)];
}

enum class ButtonState { released, pressed };

// The sprite of a button, whose size `rect` may cut.
constexpr std::string_view spriteName(Transport button, ButtonState state)
{
    struct Names {
        std::string_view released, pressed;
    };
    // clang-format off
    constexpr Names names[] = {
        {"MAIN_PREVIOUS_BUTTON", "MAIN_PREVIOUS_BUTTON_ACTIVE"},
        {"MAIN_PLAY_BUTTON",     "MAIN_PLAY_BUTTON_ACTIVE"},
        {"MAIN_PAUSE_BUTTON",    "MAIN_PAUSE_BUTTON_ACTIVE"},
        {"MAIN_STOP_BUTTON",     "MAIN_STOP_BUTTON_ACTIVE"},
        {"MAIN_NEXT_BUTTON",     "MAIN_NEXT_BUTTON_ACTIVE"},
        {"MAIN_EJECT_BUTTON",    "MAIN_EJECT_BUTTON_ACTIVE"},
    };
    // clang-format on
    const auto& name = names[static_cast<int>(button)];
    return state == ButtonState::pressed ? name.pressed : name.released;
}

}

// Where things sit in the main window when it is shaded, as classic skins are painted for it:
// window pixels, origin top left.
namespace SkinKit::MainShadeLayout {

inline constexpr Size size = MainWindowLayout::shadeSize;

// clang-format off
//                                      x   y   w  h
inline constexpr Point miniTimeOrigin {127,  4};
inline constexpr Rect  miniTimeHitArea{127,  4, 30, 6};
inline constexpr Rect  visualizerFrame{ 79,  5, 76, 5};
// clang-format on

using MainWindowLayout::TitleButton;
using MainWindowLayout::Transport;

// The title buttons are where the full window has them.
inline constexpr std::array<Rect, 4> buttonRects{
    rect(TitleButton::options), rect(TitleButton::minimize), rect(TitleButton::shade),
    rect(TitleButton::close)};

inline constexpr int miniTimeImageWidth = 30;
inline constexpr std::array<int, 5> miniTimeCellX{1, 7, 12, 20, 25}; // in the image; a gap at 17

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
