#pragma once

#include "SkinKit/Graphics/Geometry.h"

#include <cstddef>
#include <string_view>

namespace SkinKit {

// A named rectangle of a sprite sheet: sheet pixels, origin at the sheet's top left.
struct Sprite {
    std::string_view name; // unique across all sheets
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    constexpr Rect rect() const { return {x, y, width, height}; }
    bool operator==(const Sprite&) const = default;
};

}

// Equal sprites have equal hashes.
template <>
struct std::hash<SkinKit::Sprite> {
    std::size_t operator()(const SkinKit::Sprite& sprite) const
    {
        std::size_t mixed = std::hash<std::string_view>{}(sprite.name);
        for (const int part : {sprite.x, sprite.y, sprite.width, sprite.height})
            mixed = mixed * 31 + static_cast<std::size_t>(part);
        return mixed;
    }
};
