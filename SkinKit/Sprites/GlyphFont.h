#pragma once

#include "SkinKit/Sprites/GlyphArt.h"

#include <optional>

// The letters of the generated text sheet: capitals, digits and punctuation as pixel art, so that
// the picture is the same on every machine.
namespace SkinKit::GlyphFont {

inline constexpr int width = 4;  // columns; a cell is one wider, for the gap
inline constexpr int height = 5; // rows; the lowest stands on the baseline

using Glyph = GlyphArt::Glyph<height>;

// Nothing for a character the font lacks. Brackets of every kind but the round look alike, since
// they share a cell of the text sheet.
std::optional<Glyph> glyph(char32_t character);

}
