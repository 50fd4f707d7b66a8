#include "SkinKit/Text/ListFont.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace SkinKit;

namespace {

std::vector<ListFont::Glyph> glyphs(std::u32string_view characters)
{
    std::vector<ListFont::Glyph> all;
    for (const char32_t character : characters)
        all.push_back(ListFont::glyph(character));
    return all;
}

std::vector<std::string> picture(const ListFont::Glyph& glyph)
{
    std::vector<std::string> rows;
    for (const unsigned bits : glyph.rows) {
        std::string& row = rows.emplace_back();
        for (int x = 0; x < glyph.width; ++x)
            row += (bits << x & 0x80U) != 0 ? '#' : '.';
    }
    return rows;
}

constexpr int wide = 1000;

}

TEST(ListFont, ReadsGlyphsAsTheyAreDrawn)
{
    const std::vector<std::string> g{"....", "....", ".###", "#..#", "#..#",
                                     "#..#", ".###", "...#", ".##."};
    const std::vector<std::string> end{".....", ".....", ".....", ".....", ".....",
                                       ".....", "#.#.#", ".....", "....."};
    EXPECT_EQ(picture(ListFont::glyph(U'g')), g);
    EXPECT_EQ(picture(ListFont::glyph(U'…')), end);
}

TEST(ListFont, TellsAllCharactersOfASCIIApart)
{
    std::set<std::vector<std::string>> pictures{picture(ListFont::glyph(U'\uFFFD'))};
    for (char32_t character = U' '; character < 0x7F; ++character)
        EXPECT_TRUE(pictures.insert(picture(ListFont::glyph(character))).second)
            << static_cast<char>(character);
}

TEST(ListFont, AlignsNumbersInColumns)
{
    for (const char32_t character : std::u32string_view(U"123456789\u00A0"))
        EXPECT_EQ(ListFont::glyph(character).width, ListFont::glyph(U'0').width);
}

TEST(ListFont, ShowsEveryTextAsReadersReadIt)
{
    const std::pair<std::string_view, std::u32string_view> rows[] = {
        {"",                                   U""            },
        {"Ab 9~",                              U"Ab 9~"       },
        {"\u00C9t\u00E9",                      U"Ete"         },
        {"E\u0301te\u0301",                    U"Ete"         }, // marks on their own
        {"Stra\u00DFe \u00C6on",               U"Strasse Aeon"}, // both letters of each fold
        {"q\u0323x",                           U"qx"          }, // a mark without a composed letter
        {"\u2018a\u2019 \u201Cb\u201D \u2013", U"'a' \"b\" -" },
        {"a\tb\u2003c\u3000\r\n",              U"a b c  "     },
        {"1\u00A0",                            U"1\u00A0"     },
        {"\u6226",                             U"\uFFFD"      },
        {"\U0001F469\u200D\U0001F680!",        U"\uFFFD!"     }, // one sign, one box
        {"\x01\x7F",                           U"\uFFFD\uFFFD"},
        {"a\xFFz",                             U"a\uFFFDz"    },
    };
    for (const auto& [text, shown] : rows)
        EXPECT_EQ(ListFont::line(text, wide), glyphs(shown)) << text;
}

TEST(ListFont, CutsALineThatIsTooWide)
{
    EXPECT_EQ(ListFont::width(glyphs(U"abc")), 14);
    EXPECT_EQ(ListFont::width({}), 0);
    const std::tuple<std::string_view, int, std::u32string_view> rows[] = {
        {"abcd",          19, U"abcd"},
        {"abcd",          18, U"ab…" }, // 15 pixels; a third letter would make it 20
        {"abcd",          15, U"ab…" },
        {"abcd",          14, U"a…"  },
        {"abcd",          5,  U"…"   },
        {"abcd",          4,  U""    },
        {"abcd",          -7, U""    },
        {"a",             4,  U"a"   },
        {"",              -7, U""    },
        {"\u00DF\u00DFd", 19, U"ss…" }, // both letters of a fold or none
    };
    for (const auto& [text, width, shown] : rows)
        EXPECT_EQ(ListFont::line(text, width), glyphs(shown)) << text << " in " << width;
    for (int width = 0; width < 60; ++width)
        EXPECT_LE(ListFont::width(ListFont::line("wide and thin: illicit", width)), width);
}
