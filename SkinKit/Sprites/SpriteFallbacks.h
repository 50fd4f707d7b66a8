#pragma once

#include "SkinKit/Sprites/Sprite.h"

#include <functional>
#include <optional>
#include <string_view>

// Which sheet a sprite is drawn from, given the sheets that a skin holds.
namespace SkinKit::SpriteFallbacks {

// Where a sprite's pixels are.
struct Resolved {
    std::string_view sheet;
    Rect rect; // sheet pixels; not checked against the sheet's size

    bool operator==(const Resolved&) const = default;
};

// Digits and signs come from NUMS_EX wherever it is held, else from NUMBERS. Any other sprite comes
// from its own sheet, else from its substitute's, cut to the smaller of both sizes. Nothing for an
// unknown name, or when no such sheet is held.
std::optional<Resolved> resolve(std::string_view name,
                                const std::function<bool(std::string_view sheet)>& isHeld);

}
