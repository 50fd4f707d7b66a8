#pragma once

#include "SkinKit/Sprites/Sprite.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The bitmap font of a skin's text sheet: which of its cells shows which character.
namespace SkinKit::TextFont {

inline constexpr std::string_view sheet = "TEXT";
inline constexpr int cellWidth = 5;
inline constexpr int cellHeight = 6;

// A UTF-16 unit without diacritics, as UTF-8: what a Latin letter with a diacritic is folded to,
// any other character itself. Nothing for a combining mark or a surrogate. Some letters are folded
// to two ("ss"), of which the font shows the first.
std::optional<std::string> deburr(char16_t unit);

// The cell that shows a UTF-16 unit, or nothing when the font has none for it.
std::optional<Sprite> sprite(char16_t unit);
// The name of that cell's sprite.
std::optional<std::string_view> spriteName(char16_t unit);

// The cell's sprite name for each UTF-16 unit of the text as it comes; a character outside the
// first plane is two units, neither of which has a cell.
std::vector<std::optional<std::string_view>> cells(std::string_view text);

}
