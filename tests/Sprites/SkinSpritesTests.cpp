#include "SkinKit/Sprites/SkinSprites.h"
#include "tests/support/Table.h"

#include <algorithm>

using namespace SkinKit;
using At = SpriteFallbacks::Resolved;

// clang-format off
TEST(SpriteFallbacks, ReplaceWhatASkinLacks)
{
    using Sheets = std::vector<std::string_view>;
    const std::tuple<std::string_view, Sheets, std::optional<At>> rows[] = {
        {"DIGIT_5",                   {"NUMBERS", "NUMS_EX"}, At{"NUMS_EX", {45, 0, 9, 13}}},
        {"DIGIT_5",                   {"NUMBERS"},            At{"NUMBERS", {45, 0, 9, 13}}},
        {"DIGIT_5",                   {"MAIN"},               {}},
        {"MINUS_SIGN",                {"NUMBERS"},            At{"NUMBERS", {20, 6, 5, 1}}},
        {"DIGIT_5_EX",                {"NUMBERS"},            {}}, // no fallback
        {"MAIN_BALANCE_BACKGROUND",   {"BALANCE", "VOLUME"},  At{"BALANCE", {9, 0, 38, 420}}},
        // Cut to the smaller of both sizes.
        {"MAIN_BALANCE_BACKGROUND",   {"VOLUME"},             At{"VOLUME", {0, 0, 38, 420}}},
        {"MAIN_BALANCE_THUMB",        {"VOLUME"},             At{"VOLUME", {15, 422, 14, 11}}},
        {"MAIN_BALANCE_THUMB_ACTIVE", {"VOLUME"},             At{"VOLUME", {0, 422, 14, 11}}},
        {"EQ_MAXIMIZE_BUTTON_ACTIVE", {"EQMAIN"},             At{"EQMAIN", {254, 152, 9, 9}}},
        {"EQ_SHADE_BACKGROUND",       {"EQMAIN"},             At{"EQMAIN", {0, 149, 275, 14}}},
        {"EQ_SHADE_BACKGROUND",       {"EQ_EX", "EQMAIN"},    At{"EQ_EX", {0, 15, 275, 14}}},
        {"MAIN_PLAY_BUTTON",          {"MAIN"},               {}},
        {"NO_SUCH_SPRITE",            {"MAIN"},               {}},
    };
    for (const auto& [name, sheets, expected] : rows)
        EXPECT_EQ(SpriteFallbacks::resolve(name, [&](std::string_view sheet) {
                      return std::ranges::count(sheets, sheet) > 0;
                  }), expected) << name;
}
// clang-format on
