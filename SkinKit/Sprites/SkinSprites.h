#pragma once

#include "SkinKit/Sprites/Sprite.h"

#include <optional>
#include <span>
#include <string_view>

// The whole vocabulary of classic skins: which sheets exist, and every named sprite on them. Tables
// that never change; all names in them are literals.
namespace SkinKit::SkinSprites {

// A sheet is the skin's file with this name in lower case and the extension of a picture.
struct Sheet {
    std::string_view name; // upper case, such as "NUMS_EX"
    std::span<const Sprite> sprites;
};

inline constexpr std::size_t sheetCount = 16;

// No sprite reaches farther right or down in its sheet.
inline constexpr Size extent{512, 512};

// All sheets, in ascending byte order of their names.
std::span<const Sheet> sheets();
// The sprites of one sheet in table order; none for an unknown name.
std::span<const Sprite> spritesOf(std::string_view sheet);

// A sprite and the sheet it lives on.
struct Placed {
    std::string_view sheet;
    Sprite sprite;

    bool operator==(const Placed&) const = default;
};

// All 281 sprites in ascending byte order of their names.
std::span<const Placed> all();
// The sprite of that name; nothing for an unknown one.
std::optional<Placed> byName(std::string_view name);

// The sprite of another sheet that may stand in for this one.
struct Fallback {
    std::string_view name;
    std::string_view substitute;
};
std::span<const Fallback> fallbacks();

// A sprite of NUMBERS and its counterpart on NUMS_EX.
struct NumberPair {
    std::string_view plain;
    std::string_view ext;
};
std::span<const NumberPair> numberPairs();

// Whether a skin may lack this sheet without being incomplete.
bool isOptionalSheet(std::string_view sheet);

}
