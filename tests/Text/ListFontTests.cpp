#include "SkinKit/Text/ListFont.h"

#include "tests/support/Table.h"

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

}

TEST(ListFont, ShowsAllCharactersOfASCIIDifferently)
{
    std::set<std::array<std::uint8_t, ListFont::height>> rows{ListFont::glyph(U'\uFFFD').rows};
    for (char32_t character = U' '; character < 0x7F; ++character)
        EXPECT_TRUE(rows.insert(ListFont::glyph(character).rows).second) << char(character);
    for (const char32_t character : std::u32string_view(U"123456789\u00A0")) // align in columns
        EXPECT_EQ(ListFont::glyph(character).width, ListFont::glyph(U'0').width);
}

// clang-format off
TEST(ListFont, ShowsEveryTextAsReadersReadIt)
{
    constexpr int wide = 1000;
    const auto shown = [](std::string_view text) { return ListFont::line(text, wide); };
    support::expectTable<std::string_view, std::vector<ListFont::Glyph>>(shown, {
        {"",                                   {}},
        {"\u00C9t\u00E9 9~",                   glyphs(U"Ete 9~")},
        {"E\u0301te\u0301",                    glyphs(U"Ete")},          // separate marks
        {"Stra\u00DFe \u00C6on",               glyphs(U"Strasse Aeon")},
        {"q\u0323x",                           glyphs(U"qx")},           // without a composed form
        {"\u2018a\u2019 \u201Cb\u201D \u2013", glyphs(U"'a' \"b\" -")},
        {"a\tb\u2003c\u3000\r\n",              glyphs(U"a b c  ")},
        {"1\u00A0",                            glyphs(U"1\u00A0")},
        {"\u6226\x01\x7F",                     glyphs(U"\uFFFD\uFFFD\uFFFD")},
        {"\U0001F469\u200D\U0001F680!",        glyphs(U"\uFFFD!")},      // one sign, one box
        {"a\xFFz",                             glyphs(U"a\uFFFDz")},
    });
}

TEST(ListFont, CutsALineThatIsTooWide)
{
    EXPECT_EQ(ListFont::width(glyphs(U"abc")), 14);
    EXPECT_EQ(ListFont::width({}), 0);
    const std::tuple<std::string_view, int, std::u32string_view> rows[] = {
        {"abcd", 19, U"abcd"},
        {"abcd", 18, U"ab…"}, // 15 pixels; a third letter would make it 20
        {"abcd", 15, U"ab…"},
        {"abcd", 14, U"a…"},
        {"abcd", 5,  U"…"},
        {"abcd", 4,  U""},
        {"abcd", -7, U""},
        {"\u00DF\u00DFd", 19, U"ss…"}, // both letters of a fold or none
    };
    for (const auto& [text, width, shown] : rows)
        EXPECT_EQ(ListFont::line(text, width), glyphs(shown)) << text << " in " << width;
}
// clang-format on
