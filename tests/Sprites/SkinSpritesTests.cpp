#include "SkinKit/Sprites/SkinSprites.h"
#include "tests/support/Table.h"

#include <algorithm>

using namespace SkinKit;
using SpriteFallbacks::Resolved;

// clang-format off
TEST(SpriteFallbacks, ReplaceWhatASkinLacks)
{
    using Sheets = std::vector<std::string_view>;
    const std::tuple<std::string_view, Sheets, std::optional<Resolved>> rows[] = {
        {"DIGIT_5",                   {"NUMBERS", "NUMS_EX"}, Resolved{"NUMS_EX", {45, 0, 9, 13}}},
        {"DIGIT_5",                   {"NUMBERS"},            Resolved{"NUMBERS", {45, 0, 9, 13}}},
        {"DIGIT_5",                   {"MAIN"},               {}},
        {"MINUS_SIGN",                {"NUMBERS"},            Resolved{"NUMBERS", {20, 6, 5, 1}}},
        {"DIGIT_5_EX",                {"NUMBERS"},            {}}, // an extended name has no fallback
        {"MAIN_BALANCE_BACKGROUND",   {"BALANCE", "VOLUME"},  Resolved{"BALANCE", {9, 0, 38, 420}}},
        // Cut to the smaller of both sizes.
        {"MAIN_BALANCE_BACKGROUND",   {"VOLUME"},             Resolved{"VOLUME", {0, 0, 38, 420}}},
        {"MAIN_BALANCE_THUMB",        {"VOLUME"},             Resolved{"VOLUME", {15, 422, 14, 11}}},
        {"MAIN_BALANCE_THUMB_ACTIVE", {"VOLUME"},             Resolved{"VOLUME", {0, 422, 14, 11}}},
        {"EQ_MAXIMIZE_BUTTON_ACTIVE", {"EQMAIN"},             Resolved{"EQMAIN", {254, 152, 9, 9}}},
        {"EQ_SHADE_BACKGROUND",       {"EQMAIN"},             Resolved{"EQMAIN", {0, 149, 275, 14}}},
        {"EQ_SHADE_BACKGROUND",       {"EQ_EX", "EQMAIN"},    Resolved{"EQ_EX", {0, 15, 275, 14}}},
        {"MAIN_PLAY_BUTTON",          {"MAIN"},               {}},
        {"NO_SUCH_SPRITE",            {"MAIN"},               {}},
    };
    for (const auto& [name, sheets, expected] : rows)
        EXPECT_EQ(SpriteFallbacks::resolve(name, [&](std::string_view sheet) {
                      return std::ranges::count(sheets, sheet) > 0;
                  }), expected) << name;
}
// clang-format on

TEST(SkinSprites, ListsEachSheet)
{
    std::size_t count = 0;
    for (const auto& sheet : SkinSprites::sheets()) {
        EXPECT_EQ(SkinSprites::spritesOf(sheet.name).data(), sheet.sprites.data()) << sheet.name;
        count += sheet.sprites.size();
    }
    EXPECT_EQ(SkinSprites::all().size(), count);
    EXPECT_TRUE(SkinSprites::spritesOf("main").empty());
    EXPECT_FALSE(SkinSprites::byName("main_window_background"));
}
