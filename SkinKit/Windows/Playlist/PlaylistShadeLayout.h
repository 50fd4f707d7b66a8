#pragma once

#include "SkinKit/Graphics/Geometry.h"
#include "SkinKit/Text/TimeDigits.h"
#include "SkinKit/Windows/Playlist/PlaylistLayout.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

// Where things sit in the playlist window when it is shaded to a strip, and the texts it shows:
// window pixels, origin top left. A width below 0 counts as 0.
namespace SkinKit::PlaylistShadeLayout {

// clang-format off
inline constexpr int   height = PlaylistLayout::shadeHeight;
inline constexpr Point titleOrigin{5, 4};
inline constexpr int   timeY      = 4;
inline constexpr int   leftWidth  = 25;
inline constexpr int   rightWidth = 50;

constexpr int right(int width) { return std::max(width, 0); }  // the window's edge

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
