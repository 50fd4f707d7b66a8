#pragma once

#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Skin.h"
#include "SkinKit/Sprites/SkinSprites.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The bitmap font of a skin's text sheet: which of its cells shows which character.
namespace SkinKit::TextFont {

inline constexpr std::string_view sheet = "TEXT";
inline constexpr int cellWidth = 5;
inline constexpr int cellHeight = 6;

// A UTF-16 unit without diacritics, as UTF-8: what a Latin letter with a diacritic is folded to,
// any other character itself. Nothing for a combining mark or a surrogate. Some letters are folded
// to two ("ss"), of which the font shows the first.
std::optional<std::string> deburr(char16_t unit);

// The cell that shows a UTF-16 unit, or nothing when the font has none for it.
std::optional<Sprite> sprite(char16_t unit);
// The name of that cell's sprite.
std::optional<std::string_view> spriteName(char16_t unit);

// The cell's sprite name for each UTF-16 unit of the text as it comes; a character outside the
// first plane is two units, neither of which has a cell.
std::vector<std::optional<std::string_view>> cells(std::string_view text);

}

// What a skin can do with text.
namespace SkinKit {

// The text in the skin's font, 5 × 6 pixels a cell, transparent where the font has no cell for a
// character. Nothing without a text sheet or for an empty text.
std::optional<Image> textImage(const Skin& skin, std::string_view text);

// Draws such a text with its top left corner at `at`: what drawing its image would, but cell by
// cell, so that a text far longer than the clip needs no separate raster.
void drawText(Canvas& canvas, const Skin& skin, std::string_view text, Point at);

// Where the clock's sign is: the extended digits have a full-sized one, the plain ones a dash.
Rect minusFrame(const Skin& skin);

}

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
