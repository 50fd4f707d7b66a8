#include "SkinKit/Sprites/GlyphFont.h"

#include <string_view>

namespace SkinKit::GlyphFont {
namespace {

struct GlyphBlock {
    std::u32string_view characters;
    std::array<std::string_view, height> rows; // a glyph for each character, a blank between two
};

// clang-format off
constexpr GlyphBlock blocks[] = {
    {U"ABCDEFGH",
     {".##. ###. .### ###. #### #### .### #..#",
      "#..# #..# #... #..# #... #... #... #..#",
      "#### ###. #... #..# ###. ###. #.## ####",
      "#..# #..# #... #..# #... #... #..# #..#",
      "#..# ###. .### ###. #### #... .### #..#"}},
    {U"IJKLMNOP",
     {".### ..## #..# #... #..# #..# .##. ###.",
      "..#. ...# #.#. #... #### ##.# #..# #..#",
      "..#. ...# ##.. #... #### #.## #..# ###.",
      "..#. #..# #.#. #... #..# #..# #..# #...",
      ".### .##. #..# #### #..# #..# .##. #..."}},
    {U"QRSTUVWX",
     {".##. ###. .### .### #..# #..# #..# #..#",
      "#..# #..# #... ..#. #..# #..# #..# #..#",
      "#..# ###. .##. ..#. #..# #..# #### .##.",
      "#.#. #.#. ...# ..#. #..# .##. #### #..#",
      ".#.# #..# ###. ..#. .##. .##. #..# #..#"}},
    {U"YZ012345",
     {"#..# #### .##. ..#. ###. ###. #..# ####",
      "#..# ...# #..# .##. ...# ...# #..# #...",
      ".### .##. #..# ..#. .##. .##. #### ###.",
      "...# #... #..# ..#. #... ...# ...# ...#",
      ".##. #### .##. .### #### ###. ...# ###."}},
    {U"6789\"@….",
     {".### #### .##. .##. #.#. .##. .... ....",
      "#... ...# #..# #..# #.#. #.## .... ....",
      "###. ..#. .##. .### .... #.## .... ....",
      "#..# .#.. #..# ...# .... #... .... ....",
      ".##. .#.. .##. ###. .... .##. #.#. .#.."}},
    {U":()-'!_+",
     {".... ..#. .#.. .... .#.. .#.. .... ....",
      ".#.. .#.. ..#. .... .#.. .#.. .... .#..",
      ".... .#.. ..#. .##. .... .#.. .... ###.",
      ".#.. .#.. ..#. .... .... .... .... .#..",
      ".... ..#. .#.. .... .... .#.. #### ...."}},
    {U"\\/[]^&%,",
     {"#... ..#. .##. .##. .#.. .#.. #..# ....",
      "#... ..#. .#.. ..#. #.#. #.#. ...# ....",
      ".#.. .#.. .#.. ..#. .... .#.. .##. ....",
      "..#. #... .#.. ..#. .... #.#. #... .#..",
      "..#. #... .##. .##. .... .#.# #..# #..."}},
    {U"=$#ÅÖÄ?*",
     {".... .### #.#. .#.. #..# #..# .##. ....",
      "###. ##.. ###. .##. .##. .##. #..# #.#.",
      ".... .##. #.#. #..# #..# #..# ..#. .#..",
      "###. ..## ###. #### #..# #### .... #.#.",
      ".... ###. #.#. #..# .##. #..# ..#. ...."}},
};
// clang-format on

constexpr std::size_t pitch = width + 1;

static_assert([] {
    for (const auto& block : blocks)
        for (const auto row : block.rows)
            if (row.size() + 1 != block.characters.size() * pitch)
                return false;
    return true;
}());

// Characters that share a cell of the text sheet share a glyph.
char32_t withSameGlyph(char32_t character)
{
    switch (character) {
    case U'<':
    case U'{': return U'[';
    case U'>':
    case U'}': return U']';
    default: return character;
    }
}

Glyph readGlyph(const GlyphBlock& block, std::size_t place)
{
    Glyph glyph{};
    for (std::size_t y = 0; y < glyph.size(); ++y)
        for (const char dot : block.rows[y].substr(place * pitch, width))
            glyph[y] = static_cast<std::uint8_t>(glyph[y] << 1 | (dot == '#' ? 1 : 0));
    return glyph;
}

}

std::optional<Glyph> glyph(char32_t character)
{
    for (const auto& block : blocks) {
        const auto place = block.characters.find(withSameGlyph(character));
        if (place != block.characters.npos)
            return readGlyph(block, place);
    }
    return std::nullopt;
}

}
