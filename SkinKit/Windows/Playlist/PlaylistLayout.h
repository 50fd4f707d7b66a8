#pragma once

#include "SkinKit/Graphics/Geometry.h"
#include "SkinKit/Text/TimeDigits.h"
#include "SkinKit/Windows/Main/MainWindowLayout.h"

#include <array>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Where things sit in the playlist window, as classic skins are painted for it. It is resized in
// whole steps. Window pixels at scale 1, origin top left. No argument makes a place overflow.
namespace SkinKit::PlaylistLayout {

// clang-format off
inline constexpr Size baseSize{275, 116};  // of the smallest window
inline constexpr Size stepSize{ 25,  29};
inline constexpr int  shadeHeight        = 14;
inline constexpr int  topHeight          = 20;
inline constexpr int  titleBarHeight     = topHeight;
inline constexpr int  bottomHeight       = 38;
inline constexpr int  leftWidth          = 12;
inline constexpr int  rightWidth         = 20;
inline constexpr int  rowHeight          = 13;
inline constexpr int  durationRightInset =  3;  // from the track area's right edge
inline constexpr int  scrollHandleHeight = 18;
// clang-format on
// Of the characters in the small time display.
inline constexpr auto miniTimeCellXs = MainShadeLayout::miniTimeCellX;

// How many steps a window is wider and taller than the smallest.
class Steps {
public:
    constexpr Steps() = default;
    // Steps below 0 count as 0, and those beyond the widest or the tallest window as its.
    constexpr Steps(int width, int height)
        : width_(clamped(width, 0, most(baseSize.width, stepSize.width))),
          height_(clamped(height, 0, most(baseSize.height, stepSize.height)))
    {
    }

    static constexpr Steps zero() { return {}; }

    constexpr int width() const { return width_; }
    constexpr int height() const { return height_; }
    bool operator==(const Steps&) const = default;

private:
    static constexpr int most(int base, int step)
    {
        return (std::numeric_limits<int>::max() - base) / step;
    }

    int width_ = 0;
    int height_ = 0;
};

// The window's edges.
constexpr int right(Steps steps)
{
    return baseSize.width + stepSize.width * steps.width();
}
constexpr int bottom(Steps steps)
{
    return baseSize.height + stepSize.height * steps.height();
}
constexpr Size size(Steps steps)
{
    return {right(steps), bottom(steps)};
}

// The height between the title row and the bottom row.
constexpr int middleHeight(Steps steps)
{
    return bottom(steps) - topHeight - bottomHeight;
}

inline constexpr int trackMargin = 3; // above and below the rows

// clang-format off
//                                                          x               y         w   h
constexpr Rect  closeButton      (Steps s) { return {right(s) -  11,               3,  9,  9}; }
constexpr Rect  shadeButton      (Steps s) { return {right(s) -  21,               3,  9,  9}; }
constexpr Rect  resizeTarget     (Steps s) { return {right(s) -  20, bottom(s) -  20, 20, 20}; }
constexpr Rect  scrollUpButton   (Steps s) { return {right(s) -  15, bottom(s) -  36,  8,  5}; }
constexpr Rect  scrollDownButton (Steps s) { return {right(s) -  15, bottom(s) -  30,  8,  5}; }
constexpr Rect  miniTimeHitArea  (Steps s) { return {right(s) -  84, bottom(s) -  15, 31,  6}; }
constexpr Point miniTimeOrigin   (Steps s) { return {right(s) -  84, bottom(s) -  15}; }
constexpr Point runningTimeOrigin(Steps s) { return {right(s) - 143, bottom(s) -  28}; }
// clang-format on

constexpr Rect scrollTrack(Steps steps)
{
    return {right(steps) - 15, topHeight, 8, middleHeight(steps)};
}

// The rows of the list; the last one may reach into the margin below.
constexpr Rect trackArea(Steps steps)
{
    return {leftWidth, topHeight + trackMargin, right(steps) - leftWidth - rightWidth,
            middleHeight(steps) - 2 * trackMargin};
}
constexpr int visibleRows(Steps steps)
{
    return middleHeight(steps) / rowHeight;
}

// Shade and close.
constexpr std::array<Rect, 2> titleButtonRects(Steps steps)
{
    return {shadeButton(steps), closeButton(steps)};
}

// Previous, play, pause, stop, next and open, small in the bottom row.
constexpr std::array<Rect, 6> actionButtons(Steps steps)
{
    constexpr int side = 10;
    std::array<Rect, 6> rects;
    Rect button{right(steps) - 147, bottom(steps) - 16, side, side};
    for (Rect& rect : rects) {
        rect = button;
        button.x += side;
    }
    return rects;
}

// The part of the bottom row for a visualizer, which the narrowest windows have no room for.
constexpr std::optional<Rect> visualizerBackground(Steps steps)
{
    constexpr int narrowest = 3;
    if (steps.width() < narrowest)
        return std::nullopt;
    return Rect{right(steps) - 225, bottom(steps) - bottomHeight, 75, bottomHeight};
}

// A sprite of the window's frame.
struct Piece {
    std::string_view sprite;
    Rect rect;
    bool tiled = false; // repeated to fill the rectangle, from its top left corner

    bool operator==(const Piece&) const = default;
};

// The title row from left to right, closed from edge to edge; `selected` when the window is the
// active one.
std::vector<Piece> topRow(bool selected, Steps steps);
// The edges, from below the title row to above the bottom row.
Piece leftTile(Steps steps);
Piece rightTile(Steps steps);
// In drawing order: the corners cover the ends of the tile.
std::array<Piece, 3> bottomRow(Steps steps);

// The menus that pop up from the bottom row.
enum class Menu { add, remove, selection, misc, list };
inline constexpr std::array allMenus{Menu::add, Menu::remove, Menu::selection, Menu::misc,
                                     Menu::list};

// One picture of an open menu, and where it goes.
struct MenuEntry {
    std::string_view sprite;
    Rect rect;

    bool operator==(const MenuEntry&) const = default;
};

Rect menuButton(Menu menu, Steps steps);
// An open menu from top to bottom. It grows upwards; its last entry covers the button.
std::vector<MenuEntry> menuEntries(Menu menu, Steps steps);
// The thin bar to the left of an open menu.
Piece menuBar(Menu menu, Steps steps);

// The scroll handle's top for a value of 0 … 1, and the value that puts it under a pointer that
// grabbed it `grabOffset` below its top. Values outside are clamped, not-a-number is 0.
int scrollHandleY(double value, Steps steps);
double scrollValue(double pointerY, double grabOffset, Steps steps);

// The steps after the resize corner was dragged by so many pixels: the nearest.
Steps stepsAfterDrag(Steps steps, double dx, double dy);
// The most steps that fit into a window of this size. In both, a distance that is not finite gives
// no steps.
Steps stepsForPixelSize(double width, double height);

}

// The playlist's scroll bar: how its position of 0 … 100 and the first visible row belong together.
// A position outside counts as the nearer end, not-a-number as 0.
namespace SkinKit::PlaylistScroll {

using PlaylistLayout::rowHeight;

// Rows first … end - 1.
struct Rows {
    int first = 0;
    int end = 0;

    bool operator==(const Rows&) const = default;
};

// How many of `count` rows don't fit.
int overflow(int count, int visibleRows);

// The first visible row, the nearest one to the position.
int offset(double position, int count, int visibleRows);
Rows visibleRange(double position, int count, int visibleRows);

// The position of the first visible row, rounded to hundredths of 0 … 1: where the handle is.
double handleValue(double position, int count, int visibleRows);

// The position after the wheel moved the list by so many pixels.
double positionAfterWheel(double delta, double position, int count);
// The position after the first visible row moved by `rows`.
double positionAfterScrolling(int rows, double position, int count, int visibleRows);

}

// Where things sit in the playlist window when it is shaded to a strip, and the texts it shows:
// window pixels, origin top left. A width below 0 counts as 0.
namespace SkinKit::PlaylistShadeLayout {

// clang-format off
inline constexpr int   height = PlaylistLayout::shadeHeight;
inline constexpr Point titleOrigin{5, 4};
inline constexpr int   timeY      = 4;
inline constexpr int   leftWidth  = 25;
inline constexpr int   rightWidth = 50;

constexpr int right(int width) { return width > 0 ? width : 0; }  // the window's edge

//                                                      x   y  w  h
constexpr Rect closeFrame (int width) { return {right(width) - 11, 3, 9, 9}; }
constexpr Rect shadeFrame (int width) { return {right(width) - 21, 3, 9, 9}; }
constexpr Rect resizeFrame(int width) { return {right(width) - 29, 3, 9, 9}; }
// clang-format on

// Where the time's last character ends.
constexpr int timeRightEdge(int width)
{
    return right(width) - 30;
}

// The areas by which the window can't be dragged.
constexpr std::array<Rect, 3> dragExclusions(int width)
{
    return {closeFrame(width), shadeFrame(width), resizeFrame(width)};
}

// The name as far as it fits, cut between two characters as a reader sees them and ending in "…";
// "[No file]" for none.
std::string title(std::optional<std::string_view> name, int width);

// "4:05" or "12:34"; empty for no time at all. Digits that are absent show as 0.
std::string timeString(std::optional<double> seconds);
std::string timeString(const TimeDigits& digits);

}
