#include "SkinKit/Text/ListFont.h"

#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Text/TextFont.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

namespace SkinKit::ListFont {
namespace {

// In the order of their code points; the last character stands for all that have no glyph.
// clang-format off
constexpr GlyphArt::Block<height> blocks[] = {
    {U" !\"#$%&'",
     {"... # #.# ..... ..#.. ##... .#... #",
      "... # #.# .#.#. .#### ##..# #.#.. #",
      "... # #.# ##### #.#.. ...#. #.#.. #",
      "... # ... .#.#. .###. ..#.. .#... .",
      "... # ... ##### ..#.# .#... #.#.# .",
      "... . ... .#.#. ####. #..## #..#. .",
      "... # ... ..... ..#.. ...## .##.# .",
      "... . ... ..... ..... ..... ..... .",
      "... . ... ..... ..... ..... ..... ."}},
    {U"()*+,-./",
     {".# #. #.# ..... .. ... . ..#",
      "#. .# .#. ..... .. ... . ..#",
      "#. .# #.# ..#.. .. ... . .#.",
      "#. .# ... ..#.. .. ... . .#.",
      "#. .# ... ##### .. ### . .#.",
      "#. .# ... ..#.. .. ... . #..",
      "#. .# ... ..#.. .# ... # #..",
      ".# #. ... ..... #. ... . ...",
      ".. .. ... ..... .. ... . ..."}},
    {U"01234567",
     {".##. ..#. .##. .##. ...# #### .##. ####",
      "#..# .##. #..# #..# ..## #... #..# ...#",
      "#..# ..#. ...# ...# .#.# ###. #... ...#",
      "#..# ..#. ..#. .##. #..# ...# ###. ..#.",
      "#..# ..#. .#.. ...# #### ...# #..# ..#.",
      "#..# ..#. #... #..# ...# #..# #..# .#..",
      ".##. .### #### .##. ...# .##. .##. .#..",
      ".... .... .... .... .... .... .... ....",
      ".... .... .... .... .... .... .... ...."}},
    {U"89:;<=>?",
     {".##. .##. . .. ... .... ... .##.",
      "#..# #..# . .. ... .... ... #..#",
      "#..# #..# # .# ..# .... #.. ...#",
      ".##. .### . .. .#. #### .#. ..#.",
      "#..# ...# . .. #.. .... ..# .#..",
      "#..# #..# . .. .#. #### .#. ....",
      ".##. .##. # .# ..# .... #.. .#..",
      ".... .... . #. ... .... ... ....",
      ".... .... . .. ... .... ... ...."}},
    {U"@ABCDEFG",
     {".####. .###. ####. .###. ####. #### #### .###.",
      "#....# #...# #...# #...# #...# #... #... #...#",
      "#.##.# #...# #...# #.... #...# #... #... #....",
      "#.##.# ##### ####. #.... #...# ###. ###. #..##",
      "#.###. #...# #...# #.... #...# #... #... #...#",
      "#..... #...# #...# #...# #...# #... #... #...#",
      ".####. #...# ####. .###. ####. #### #... .###.",
      "...... ..... ..... ..... ..... .... .... .....",
      "...... ..... ..... ..... ..... .... .... ....."}},
    {U"HIJKLMNO",
     {"#...# ### ..## #...# #... #...# #...# .###.",
      "#...# .#. ...# #..#. #... ##.## ##..# #...#",
      "#...# .#. ...# #.#.. #... #.#.# ##..# #...#",
      "##### .#. ...# ##... #... #.#.# #.#.# #...#",
      "#...# .#. ...# #.#.. #... #...# #..## #...#",
      "#...# .#. #..# #..#. #... #...# #..## #...#",
      "#...# ### .##. #...# #### #...# #...# .###.",
      "..... ... .... ..... .... ..... ..... .....",
      "..... ... .... ..... .... ..... ..... ....."}},
    {U"PQRSTUVW",
     {"####. .###. ####. .###. ##### #...# #...# #...#",
      "#...# #...# #...# #...# ..#.. #...# #...# #...#",
      "#...# #...# #...# #.... ..#.. #...# #...# #...#",
      "####. #...# ####. .###. ..#.. #...# #...# #.#.#",
      "#.... #.#.# #.#.. ....# ..#.. #...# .#.#. #.#.#",
      "#.... #..#. #..#. #...# ..#.. #...# .#.#. #.#.#",
      "#.... .##.# #...# .###. ..#.. .###. ..#.. .#.#.",
      "..... ..... ..... ..... ..... ..... ..... .....",
      "..... ..... ..... ..... ..... ..... ..... ....."}},
    {U"XYZ[\\]^_",
     {"#...# #...# ##### ## #.. ## .#. ....",
      "#...# #...# ....# #. #.. .# #.# ....",
      ".#.#. .#.#. ...#. #. .#. .# ... ....",
      "..#.. ..#.. ..#.. #. .#. .# ... ....",
      ".#.#. ..#.. .#... #. .#. .# ... ....",
      "#...# ..#.. #.... #. ..# .# ... ....",
      "#...# ..#.. ##### #. ..# .# ... ....",
      "..... ..... ..... ## ... ## ... ####",
      "..... ..... ..... .. ... .. ... ...."}},
    {U"`abcdefg",
     {"#. .... #... .... ...# .... .## ....",
      ".# .... #... .... ...# .... .#. ....",
      ".. .##. ###. .### .### .##. ### .###",
      ".. ...# #..# #... #..# #..# .#. #..#",
      ".. .### #..# #... #..# #### .#. #..#",
      ".. #..# #..# #... #..# #... .#. #..#",
      ".. .### ###. .### .### .### .#. .###",
      ".. .... .... .... .... .... ... ...#",
      ".. .... .... .... .... .... ... .##."}},
    {U"hijklmno",
     {"#... # .# #... # ..... .... ....",
      "#... . .. #... # ..... .... ....",
      "###. # .# #..# # ####. ###. .##.",
      "#..# # .# #.#. # #.#.# #..# #..#",
      "#..# # .# ##.. # #.#.# #..# #..#",
      "#..# # .# #.#. # #.#.# #..# #..#",
      "#..# # .# #..# # #.#.# #..# .##.",
      ".... . .# .... . ..... .... ....",
      ".... . #. .... . ..... .... ...."}},
    {U"pqrstuvw",
     {".... .... ... .... ... .... ..... .....",
      ".... .... ... .... .#. .... ..... .....",
      "###. .### #.# .### ### #..# #...# #...#",
      "#..# #..# ##. #... .#. #..# #...# #...#",
      "#..# #..# #.. .##. .#. #..# .#.#. #.#.#",
      "#..# #..# #.. ...# .#. #..# .#.#. #.#.#",
      "###. .### #.. ###. ..# .### ..#.. .#.#.",
      "#... ...# ... .... ... .... ..... .....",
      "#... ...# ... .... ... .... ..... ....."}},
    {U"xyz{|}~\u00A0",
     {".... .... .... ..# # #.. .... ....",
      ".... .... .... .#. # .#. .... ....",
      "#..# #..# #### .#. # .#. .... ....",
      "#..# #..# ..#. #.. # ..# .#.# ....",
      ".##. #..# .#.. .#. # .#. #.#. ....",
      "#..# #..# #... .#. # .#. .... ....",
      "#..# .### #### .#. # .#. .... ....",
      ".... ...# .... ..# # #.. .... ....",
      ".... .##. .... ... # ... .... ...."}},
    {U"…\uFFFD",
     {"..... ....",
      "..... ####",
      "..... #..#",
      "..... #..#",
      "..... #..#",
      "..... #..#",
      "#.#.# ####",
      "..... ....",
      "..... ...."}},
};
// clang-format on

constexpr char32_t firstCharacter = U' ';
constexpr char32_t endOfASCII = U'\x7F';
constexpr char32_t noBreakSpace = U'\u00A0';
constexpr char32_t ellipsis = U'…';

constexpr std::size_t glyphCount = [] {
    std::size_t count = 0;
    for (const auto& block : blocks)
        count += block.characters.size();
    return count;
}();

static_assert([] {
    char32_t previous = firstCharacter - 1;
    for (const auto& block : blocks)
        for (const char32_t character : block.characters) {
            const bool isNext = character == previous + 1 || character > endOfASCII;
            if (!isNext || character <= previous)
                return false;
            previous = character;
        }
    return previous == Unicode::replacementCharacter;
}());

static_assert(std::ranges::all_of(blocks, GlyphArt::isWellDrawn<height>));

constexpr auto table = [] {
    std::array<Glyph, glyphCount> all{};
    std::size_t count = 0;
    for (const auto& block : blocks)
        for (std::size_t left = 0; left < block.rows[0].size();) {
            all[count] = GlyphArt::read(block, left);
            left += static_cast<std::size_t>(all[count].width) + 1;
            ++count;
        }
    return all;
}();

// What looks like a character of ASCII in a font as small as this.
struct Alike {
    char32_t plain;
    std::u32string_view others;
};
constexpr Alike alikes[] = {
    {U'-',  U"\u2010\u2011\u2012–—\u2212"}, // hyphens, dashes, minus
    {U'\'', U"‘’\u2032"                  },
    {U'"',  U"“”\u2033"                  },
};

char32_t withSameGlyph(char32_t character)
{
    for (const auto& [plain, others] : alikes)
        if (others.contains(character))
            return plain;
    return character;
}

// A mark, or a character outside the first plane, is shown as it is.
std::string deburred(char32_t character)
{
    constexpr char32_t endOfFirstPlane = 0x10000;
    if (character < endOfFirstPlane)
        if (auto letters = TextFont::deburr(static_cast<char16_t>(character)))
            return std::move(*letters);
    std::string itself;
    Unicode::append(itself, character);
    return itself;
}

// Shows what a reader takes for one character by the first code point of its composed form; marks
// that are left then go.
void append(std::vector<Glyph>& line, std::string_view character)
{
    const std::string composed = Unicode::toNFC(character);
    std::string_view codePoints = composed;
    const std::string letters = deburred(Unicode::takeCodePoint(codePoints));
    for (std::string_view rest = letters; !rest.empty();) {
        const char32_t letter = Unicode::takeCodePoint(rest);
        const bool isSpace = letter != noBreakSpace && Unicode::isWhiteSpace(letter);
        line.push_back(glyph(isSpace ? U' ' : letter));
    }
}

}

Glyph glyph(char32_t character)
{
    if (character >= endOfASCII)
        character = withSameGlyph(character);
    if (character >= firstCharacter && character < endOfASCII)
        return table[character - firstCharacter];
    // After ASCII come the no-break space, the ellipsis and the box.
    if (character == noBreakSpace)
        return table[glyphCount - 3];
    return character == ellipsis ? table[glyphCount - 2] : table[glyphCount - 1];
}

std::vector<Glyph> line(std::string_view text, int width)
{
    const Glyph end = glyph(ellipsis);
    std::vector<Glyph> line;
    std::size_t keptBeforeEnd = 0; // glyphs
    std::int64_t right = -gap;
    while (!text.empty()) {
        const std::size_t before = line.size();
        append(line, Unicode::takeGrapheme(text));
        for (const Glyph& added : std::span(line).subspan(before))
            right += gap + added.width;
        if (right > width) {
            line.resize(keptBeforeEnd);
            if (end.width <= width)
                line.push_back(end);
            return line;
        }
        if (right + gap + end.width <= width)
            keptBeforeEnd = line.size();
    }
    return line;
}

int width(std::span<const Glyph> line)
{
    int right = line.empty() ? 0 : -gap;
    for (const Glyph& glyph : line)
        right += gap + glyph.width;
    return right;
}

}
