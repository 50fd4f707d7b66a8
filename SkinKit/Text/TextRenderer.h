#pragma once

#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Skin.h"

#include <optional>
#include <string_view>

// What a skin can do with text.
namespace SkinKit {

// The text in the skin's font, 5 × 6 pixels a cell, transparent where the font has no cell for a
// character. Nothing without a text sheet or for an empty text.
std::optional<Image> textImage(const Skin& skin, std::string_view text);

// Draws such a text with its top left corner at `at`: what drawing its image would, but cell by
// cell, so that a text far longer than the clip needs no raster of its own.
void drawText(Canvas& canvas, const Skin& skin, std::string_view text, Point at);

// Where the clock's sign stands: the extended digits have a full-sized one, the plain ones a dash.
Rect minusFrame(const Skin& skin);

}
