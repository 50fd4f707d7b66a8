#pragma once

#include <string>
#include <string_view>

// How a song title scrolls through its narrow area. Lengths are UTF-16 units of the composed (NFC)
// text, which is one text cell each.
namespace SkinKit::MarqueeLayout {

inline constexpr int width = 154;    // pixels of the area
inline constexpr int charWidth = 5;  // pixels of a cell
inline constexpr int maxLength = 31; // a text of this length or more loops
inline constexpr std::string_view separator = "  ***  ";
inline constexpr double stepInterval = 0.22; // seconds between two steps of an animated player
inline constexpr double resumeDelay = 1;     // seconds until scrolling goes on after a drag

// Whether the text scrolls.
bool isLong(std::string_view text);

// The text to draw: a short one filled up with spaces to the area's width, a long one twice with
// the separator between, so that it can be drawn from any offset.
std::string loopText(std::string_view text);

// How far to the left the loop text is drawn after so many steps of a cell each and so many pixels
// more, in pixels of 0 up to one round of the loop. 0 for a short text.
int stepOffset(std::string_view text, int step, int pixels);

}
