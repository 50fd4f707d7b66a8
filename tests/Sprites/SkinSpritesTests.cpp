#include "SkinKit/Sprites/SkinSprites.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace SkinKit;
using SpriteFallbacks::Resolved;

namespace {

using Sheets = std::vector<std::string_view>;

std::optional<Resolved> resolve(std::string_view name, const Sheets& held)
{
    return SpriteFallbacks::resolve(
        name, [&held](std::string_view sheet) { return std::ranges::count(held, sheet) > 0; });
}

}

TEST(SkinSprites, PlacesSpritesOfEverySheet)
{
    const std::tuple<std::string_view, std::string_view, Rect> rows[] = {
        {"TITLEBAR", "MAIN_CLUTTER_BAR_BUTTON_V_SELECTED",      {336, 77, 8, 7}  },
        {"TITLEBAR", "MAIN_SHADE_POSITION_THUMB_LEFT",          {17, 36, 3, 7}   },
        {"CBUTTONS", "MAIN_NEXT_BUTTON",                        {92, 0, 23, 18}  },
        {"CBUTTONS", "MAIN_NEXT_BUTTON_ACTIVE",                 {92, 18, 22, 18} }, // narrower, deliberately
        {"PLAYPAUS", "MAIN_NOT_WORKING_INDICATOR",              {36, 0, 9, 9}    },
        {"MONOSTER", "MAIN_MONO_SELECTED",                      {29, 0, 27, 12}  },
        {"SHUFREP",  "MAIN_PLAYLIST_BUTTON_DEPRESSED_SELECTED", {69, 73, 23, 12} },
        {"POSBAR",   "MAIN_POSITION_SLIDER_THUMB_SELECTED",     {278, 0, 29, 10} },
        {"VOLUME",   "MAIN_VOLUME_BACKGROUND",                  {0, 0, 68, 420}  },
        {"BALANCE",  "MAIN_BALANCE_BACKGROUND",                 {9, 0, 38, 420}  },
        {"NUMBERS",  "NO_MINUS_SIGN",                           {9, 6, 5, 1}     },
        {"NUMS_EX",  "MINUS_SIGN_EX",                           {99, 0, 9, 13}   },
        {"PLEDIT",   "PLAYLIST_EXPAND_SELECTED",                {150, 42, 9, 9}  },
        {"EQMAIN",   "EQ_GRAPH_LINE_COLORS",                    {115, 294, 1, 19}},
        {"EQ_EX",    "EQ_SHADE_BALANCE_SLIDER_RIGHT",           {17, 30, 3, 7}   },
        {"GEN",      "GEN_MIDDLE_RIGHT_BOTTOM",                 {170, 42, 8, 24} },
    };
    for (const auto& [sheet, name, rect] : rows) {
        const auto placed = SkinSprites::byName(name);
        ASSERT_TRUE(placed) << name;
        EXPECT_EQ(placed->sheet, sheet) << name;
        EXPECT_EQ(placed->sprite.rect(), rect) << name;
    }
    EXPECT_EQ(SkinSprites::all().size(), 281U);
    std::size_t count = 0;
    for (const auto& sheet : SkinSprites::sheets()) {
        EXPECT_EQ(SkinSprites::spritesOf(sheet.name).data(), sheet.sprites.data()) << sheet.name;
        count += sheet.sprites.size();
    }
    EXPECT_EQ(count, 281U);
    EXPECT_TRUE(SkinSprites::spritesOf("main").empty());
    EXPECT_FALSE(SkinSprites::byName("main_window_background"));
    EXPECT_FALSE(SkinSprites::byName(""));
}

TEST(SkinSprites, LaysTheTextSheetOutInThreeRows)
{
    const auto at = [](char32_t character) {
        const auto placed =
            SkinSprites::byName("CHARACTER_" + std::to_string(std::uint32_t{character}));
        return placed && placed->sheet == "TEXT" ? placed->sprite.rect() : Rect{};
    };
    const std::u32string_view rows[] = {U"abcdefghijklmnopqrstuvwxyz\"@",
                                        U"0123456789….:()-'!_+\\/[]^&%,=$#", U"ÅÖÄ?*"};
    std::size_t count = 0;
    for (int row = 0; row < 3; ++row)
        for (std::size_t i = 0; i < rows[row].size(); ++i, ++count)
            EXPECT_EQ(at(rows[row][i]), (Rect{static_cast<int>(5 * i), 6 * row, 5, 6}))
                << std::uint32_t{rows[row][i]};
    EXPECT_EQ(at(U' '), (Rect{150, 0, 5, 6}));
    for (const char32_t bracket : {U'<', U'{'})
        EXPECT_EQ(at(bracket), at(U'['));
    for (const char32_t bracket : {U'>', U'}'})
        EXPECT_EQ(at(bracket), at(U']'));
    EXPECT_EQ(SkinSprites::spritesOf("TEXT").size(), count + 5);
    EXPECT_EQ(at(U'A'), Rect{});
}

TEST(SpriteFallbacks, TakesDigitsFromTheExtendedSheetWhereverItIsHeld)
{
    const std::tuple<std::string_view, Sheets, std::optional<Resolved>> rows[] = {
        {"DIGIT_5",    {"NUMBERS", "NUMS_EX"}, Resolved{"NUMS_EX", {45, 0, 9, 13}}},
        {"DIGIT_5",    {"NUMBERS"},            Resolved{"NUMBERS", {45, 0, 9, 13}}},
        {"DIGIT_5",    {"MAIN"},               std::nullopt                       },
        {"MINUS_SIGN", {"NUMS_EX"},            Resolved{"NUMS_EX", {99, 0, 9, 13}}},
        {"MINUS_SIGN", {"NUMBERS"},            Resolved{"NUMBERS", {20, 6, 5, 1}} },
        {"DIGIT_5_EX", {"NUMBERS"},            std::nullopt                       }, // nothing stands in for the extended names
    };
    for (const auto& [name, held, expected] : rows)
        EXPECT_EQ(resolve(name, held), expected) << name;
    ASSERT_EQ(SkinSprites::numberPairs().size(), 12U);
    for (const auto& [plain, ext] : SkinSprites::numberPairs())
        EXPECT_EQ(ext, std::string(plain) + "_EX");
}

TEST(SpriteFallbacks, SubstitutesCutToTheSmallerOfBothSizes)
{
    const std::tuple<std::string_view, Sheets, std::optional<Resolved>> rows[] = {
        {"MAIN_BALANCE_BACKGROUND",      {"BALANCE", "VOLUME"}, Resolved{"BALANCE", {9, 0, 38, 420}} },
        {"MAIN_BALANCE_BACKGROUND",      {"VOLUME"},            Resolved{"VOLUME", {0, 0, 38, 420}}  },
        {"MAIN_BALANCE_THUMB",           {"VOLUME"},            Resolved{"VOLUME", {15, 422, 14, 11}}},
        {"MAIN_BALANCE_THUMB_ACTIVE",    {"VOLUME"},            Resolved{"VOLUME", {0, 422, 14, 11}} },
        {"EQ_MAXIMIZE_BUTTON_ACTIVE",    {"EQMAIN"},            Resolved{"EQMAIN", {254, 152, 9, 9}} },
        {"EQ_SHADE_BACKGROUND",          {"EQMAIN"},            Resolved{"EQMAIN", {0, 149, 275, 14}}},
        {"EQ_SHADE_BACKGROUND_SELECTED", {"EQMAIN"},            Resolved{"EQMAIN", {0, 134, 275, 14}}},
        {"EQ_SHADE_BACKGROUND",          {"EQ_EX", "EQMAIN"},   Resolved{"EQ_EX", {0, 15, 275, 14}}  },
        {"MAIN_BALANCE_THUMB",           {"MAIN"},              std::nullopt                         },
        {"MAIN_PLAY_BUTTON",             {"MAIN"},              std::nullopt                         },
        {"NO_SUCH_SPRITE",               {"MAIN"},              std::nullopt                         },
    };
    for (const auto& [name, held, expected] : rows)
        EXPECT_EQ(resolve(name, held), expected) << name;
    EXPECT_EQ(SkinSprites::fallbacks().size(), 6U);
}
