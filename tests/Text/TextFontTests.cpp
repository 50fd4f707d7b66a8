#include "SkinKit/Text/TextFont.h"

#include "tests/support/Pictures.h"
#include "tests/support/Table.h"

#include <climits>
#include <string>

using namespace SkinKit;
using support::expectTable;

namespace {

// The text as the font shows it: of each cell its character, "~" where there is none.
std::string shown(std::string_view text)
{
    std::string characters;
    for (const auto& name : TextFont::cells(text))
        characters += name ? static_cast<char>(std::stoi(std::string(name->substr(10)))) : '~';
    return characters;
}

Skin skinWithText(Size size)
{
    Skin skin;
    skin.sheets.emplace("TEXT", support::markedImage(size));
    return skin;
}

const std::string twentyNine(29, 'x');
const std::string thirtyOne(31, 'x');

}

// clang-format off
TEST(TextFont, ShowsEachCharacterInItsCell)
{
    expectTable<std::string_view, std::string_view>(shown, {
        {"Az09 @\"",                    "az09 @\""},
        {".:()-'!_+\\/[]^&%,=$#?*<>{}", ".:()-'!_+\\/[]^&%,=$#?*<>{}"},
        {"a;b|`~\t",                    "a~b~~~~"},
        {"Café Straße ÄÅÖ",             "cafe strase aao"}, // not the cells of ÄÅÖ
        {"Æß Œuvre Ĳssel Þing ŉ",       "as ouvre issel ting '"},
        {"ĦıķŁŋøſŦŸ",                   "hiklnosty"},
        {"ΑЖ日\u00A9",                  "~~~~"},
        {"e\u0301\u20D7\uFE20",         "e~~~"}, // separate marks
        {"\u212A",                      "k"},    // the Kelvin sign, whose lower case is a letter
        {"\U0001F600!",                 "~~!"},  // two units
    });
    expectTable<char16_t, std::optional<std::string>>(TextFont::deburr, {
        {u'Æ', "Ae"}, {u'ĳ', "ij"}, {u'ß', "ss"}, {u'ŉ', "'n"}, {u'a', "a"}, {u'×', "×"},
        {u'\u0301', std::nullopt}, {u'\xD800', std::nullopt},
    });
}

TEST(TextFont, StretchesCellsThatASmallSheetCutsShort)
{
    // The sheet has two of the five columns of the "b"; the mark composes with the "c".
    const auto image = textImage(skinWithText({7, 4}), "bc\u0301");
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (Size{10, 6}));
    constexpr int columns[] = {5, 5, 6, 6, 6}; // floor((i + 1/2) * 2 / 5) beyond 5
    constexpr int rows[] = {0, 1, 1, 2, 3, 3}; // floor((i + 1/2) * 4 / 6)
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 5; ++x) {
            EXPECT_EQ(image->pixel({x, y}), support::markOf({columns[x], rows[y]}));
            EXPECT_EQ(image->pixel({5 + x, y}), transparentPixel) << "no c at all";
        }
    EXPECT_FALSE(textImage(Skin{}, "text"));
    EXPECT_FALSE(textImage(skinWithText({155, 18}), ""));
}

TEST(MarqueeLayout, LoopsALongText)
{
    using MarqueeLayout::stepOffset;
    expectTable<std::string, std::string>(MarqueeLayout::loopText, {
        {"",                        std::string(31, ' ')},
        {twentyNine,                twentyNine + "  "},
        {thirtyOne,                 thirtyOne + "  ***  " + thirtyOne},
        {twentyNine + "e\u0301",    twentyNine + "\u00E9 "}, // composed, a unit
        {twentyNine + "\U0001F600", twentyNine + "\U0001F600  ***  " + twentyNine + "\U0001F600"},
    });
    using Offset = std::pair<int, int>; // steps and pixels; a round has 190 pixels
    expectTable<Offset, int>([](Offset by) { return stepOffset(thirtyOne, by.first, by.second); }, {
        {{0, 0}, 0}, {{1, 0}, 5}, {{37, 4}, 189}, {{38, 0}, 0}, {{0, -1}, 189}, {{-38, 0}, 0},
        {{1, -6}, 189}, {{INT_MAX, INT_MAX}, static_cast<int>(6LL * INT_MAX % 190)},
    });
    EXPECT_EQ(stepOffset(twentyNine + "x", 7, 3), 0);
}
// clang-format on
