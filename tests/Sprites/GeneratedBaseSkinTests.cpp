#include "SkinKit/Sprites/GeneratedBaseSkin.h"
#include "SkinKit/Sprites/SkinSprites.h"
#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace SkinKit;
using support::rowsOf;

namespace {

using Rows = std::vector<std::string>;

const support::Legend legend{
    {'.', packPixel(40,  40,  48) },
    {'p', packPixel(60,  60,  70) },
    {'b', packPixel(150, 150, 160)},
    {'d', packPixel(120, 120, 130)},
    {'L', packPixel(220, 220, 230)},
    {'D', packPixel(70,  70,  80) },
    {' ', packPixel(0,   0,   0)  },
    {'#', packPixel(0,   230, 0)  },
};

Rows part(std::string_view sheet, const Rect& rect)
{
    return rowsOf(*GeneratedBaseSkin::sheet(sheet)->crop(rect), legend);
}

Rows spriteRows(std::string_view name)
{
    const auto placed = SkinSprites::byName(name);
    return part(placed->sheet, placed->sprite.rect());
}

}

TEST(GeneratedBaseSkin, StandsInForAllButTheSheetsThatOthersReplace)
{
    const std::tuple<std::string_view, Size, bool> rows[] = {
        {"BALANCE",  {47, 433},  false},
        {"CBUTTONS", {136, 36},  true },
        {"EQMAIN",   {275, 315}, true },
        {"EQ_EX",    {275, 56},  false},
        {"GEN",      {178, 86},  false},
        {"MAIN",     {275, 116}, true },
        {"MONOSTER", {56, 24},   true },
        {"NUMBERS",  {90, 13},   true },
        {"NUMS_EX",  {108, 13},  false},
        {"PLAYPAUS", {48, 9},    true },
        {"PLEDIT",   {280, 186}, true },
        {"POSBAR",   {307, 10},  true },
        {"SHUFREP",  {92, 85},   true },
        {"TEXT",     {155, 18},  true },
        {"TITLEBAR", {344, 86},  true },
        {"VOLUME",   {68, 433},  true },
        {"OTHER",    {1, 1},     false},
    };
    for (const auto& [sheet, size, isGenerated] : rows) {
        EXPECT_EQ(GeneratedBaseSkin::size(sheet), size) << sheet;
        EXPECT_EQ(GeneratedBaseSkin::isGenerated(sheet), isGenerated) << sheet;
        const auto image = GeneratedBaseSkin::sheet(sheet);
        ASSERT_EQ(image.has_value(), isGenerated) << sheet;
        if (!image)
            continue;
        EXPECT_EQ(image->size(), size) << sheet;
        for (int y = 0; y < size.height; ++y)
            EXPECT_TRUE(std::ranges::all_of(image->row(y), [](Pixel p) {
                return alphaOf(p) == 255;
            })) << sheet;
        EXPECT_EQ(image->row(0).data(), GeneratedBaseSkin::sheet(sheet)->row(0).data())
            << "drawn once";
    }
}

TEST(GeneratedBaseSkin, BevelsSpritesAsTheirNamesSay)
{
    EXPECT_EQ(spriteRows("MAIN_PLAYING_INDICATOR").front(), "LLLLLLLLD");
    EXPECT_EQ(spriteRows("MAIN_SHADE_POSITION_THUMB_LEFT"),
              (Rows{"LLD", "LbD", "LbD", "LbD", "LbD", "LbD", "DDD"}));
    const Rows pressed = spriteRows("MAIN_SHADE_BUTTON_SELECTED_DEPRESSED");
    EXPECT_EQ(pressed[0], "DDDDDDDDL");
    EXPECT_EQ(pressed[4], "DdddddddL");
    EXPECT_EQ(pressed[8], "LLLLLLLLL");
    // A background is raised, even one that is selected.
    const Rows background = spriteRows("MAIN_SHADE_POSITION_BACKGROUND");
    EXPECT_EQ(background[0], "LLLLLLLLLLLLLLLLD");
    EXPECT_EQ(background[3], "LpppppppppppppppD");
    EXPECT_EQ(spriteRows("MAIN_SHADE_BACKGROUND_SELECTED")[5].substr(0, 4), "Lppp");
}

TEST(GeneratedBaseSkin, FramesNothingThinnerThanThreePixels)
{
    EXPECT_EQ(spriteRows("EQ_PREAMP_LINE"), Rows{std::string(113, 'b')});
    EXPECT_EQ(spriteRows("EQ_GRAPH_LINE_COLORS"), Rows(19, "b"));
}

TEST(GeneratedBaseSkin, LaysSmallerSpritesOverLargerOnesAndLaterNamesOverEarlier)
{
    // Two lights of one size overlap by six columns; the one whose name is later is whole.
    EXPECT_EQ(part("PLAYPAUS", {36, 4, 12, 1}), Rows{"LbbLbbbbbbbD"});
    // The pressed next button is a column narrower than the one for eject beside it begins.
    EXPECT_EQ(part("CBUTTONS", {112, 4, 4, 1}), Rows{"bbLb"});
    // What no sprite covers is the sheet's own colour.
    EXPECT_EQ(part("VOLUME", {13, 425, 4, 1}), Rows{"L.Lb"}) << "between the thumbs";
}

TEST(GeneratedBaseSkin, LightsTheSegmentsOfEachDigit)
{
    EXPECT_EQ(part("NUMBERS", {9, 0, 9, 13}), // its minus sign stays dark
              (Rows{"         ", "       # ", "       # ", "       # ", "       # ", "       # ",
                    "         ", "       # ", "       # ", "       # ", "       # ", "       # ",
                    "         "}));
    // Each digit by the middle of its segments: top, upper left, upper right, middle, lower left,
    // lower right, bottom.
    constexpr Point middles[] = {
        {4, 0 },
        {1, 3 },
        {7, 3 },
        {4, 6 },
        {1, 9 },
        {7, 9 },
        {4, 12}
    };
    constexpr std::string_view lit[] = {"###.###", "..#..#.", "#.###.#", "#.##.##", ".###.#.",
                                        "##.#.##", "##.####", "#.#..#.", "#######", "####.##"};
    const Image numbers = *GeneratedBaseSkin::sheet("NUMBERS");
    for (int digit = 0; digit < 10; ++digit)
        for (std::size_t i = 0; i < std::size(middles); ++i)
            EXPECT_EQ(numbers.pixel({9 * digit + middles[i].x, middles[i].y}) == legend.at('#'),
                      lit[digit][i] == '#')
                << digit << ", segment " << i;
}

TEST(GeneratedBaseSkin, WritesADifferentGlyphIntoEachCellOfTheTextSheet)
{
    std::map<Rows, std::string_view> glyphs;
    std::map<std::pair<int, int>, std::string_view> cells;
    for (const Sprite& sprite : SkinSprites::spritesOf("TEXT")) {
        const Rows glyph = part("TEXT", sprite.rect());
        const bool isBlank =
            std::ranges::all_of(glyph, [](const auto& row) { return row == "     "; });
        EXPECT_EQ(isBlank, sprite.name == "CHARACTER_32") << sprite.name;
        for (const auto& row : glyph)
            EXPECT_EQ(row.find_first_not_of(" #"), row.npos) << sprite.name;
        EXPECT_EQ(glyph.back(), "     ") << "below the baseline: " << sprite.name;
        const bool looksLikeO = sprite.name == "CHARACTER_48";
        if (!looksLikeO && cells.emplace(std::pair(sprite.x, sprite.y), sprite.name).second) {
            EXPECT_TRUE(glyphs.emplace(glyph, sprite.name).second)
                << sprite.name << " looks like " << glyphs[glyph];
        }
    }
    EXPECT_EQ(part("TEXT", {35, 0, 5, 6}), // h, as a capital
              (Rows{"#  # ", "#  # ", "#### ", "#  # ", "#  # ", "     "}));
}
