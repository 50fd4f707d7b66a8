#pragma once

#include "SkinKit/Sprites/GlyphArt.h"

#include <span>
#include <string_view>
#include <vector>

// The letters of the playlist's entries: a small proportional font in capitals and small letters,
// as pixel art, so that the picture is the same on every machine.
namespace SkinKit::ListFont {

inline constexpr int height = 9; // rows; the lowest two are below the baseline
inline constexpr int gap = 1;    // blank columns between two glyphs

// The picture of one character.
using Glyph = GlyphArt::Glyph<height>;

// Exact for ASCII, the ellipsis and the no-break space, which is as wide as a digit; a hollow box
// for any other.
Glyph glyph(char32_t character);

// What shows the text in a line of at most `width` pixels. Other Latin letters are folded to plain
// ones, typographic quotes and dashes too; any other character is one hollow box. A text that is
// too wide ends in "…", cut between two characters as a reader sees them.
std::vector<Glyph> line(std::string_view text, int width);

// Of the glyphs side by side.
int width(std::span<const Glyph> glyphs);

}
