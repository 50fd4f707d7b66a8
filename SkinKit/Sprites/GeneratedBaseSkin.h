#pragma once

#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Sprites/GlyphArt.h"

#include <optional>
#include <string_view>

// Plain stand-ins for the sheets a skin lacks, drawn from the sprite table alone: bevelled buttons
// and panels, seven-segment digits, and text in a small built-in font.
namespace SkinKit::GeneratedBaseSkin {

// Whether there is a stand-in for this sheet: for all but the optional ones that others replace
// (BALANCE, NUMS_EX, EQ_EX, GEN).
bool isGenerated(std::string_view sheet);

// The size that holds every sprite of the sheet; 1 × 1 for an unknown one.
Size size(std::string_view sheet);

// The stand-in, opaque, or nothing where there is none. Drawn once per process, when first asked
// for; the pixels are shared from then on.
std::optional<Image> sheet(std::string_view name);

}

// The letters of the generated text sheet: capitals, digits and punctuation as pixel art, so that
// the picture is the same on every machine.
namespace SkinKit::GlyphFont {

inline constexpr int width = 4;  // columns; a cell is one wider, for the gap
inline constexpr int height = 5; // rows; the lowest is on the baseline

using Glyph = GlyphArt::Glyph<height>;

// Nothing for a character the font lacks. Brackets of every kind but the round look alike, since
// they share a cell of the text sheet.
std::optional<Glyph> glyph(char32_t character);

}
