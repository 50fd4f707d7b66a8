#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string_view> // std::hash, in less than <functional>

namespace SkinKit {

// An opaque colour, 8 bits a channel: the colour type of the whole system.
struct RGBColor {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    auto operator<=>(const RGBColor&) const = default;
};

// The colour written 0xRRGGBB.
constexpr RGBColor rgb(std::uint32_t hex)
{
    return {static_cast<std::uint8_t>(hex >> 16), static_cast<std::uint8_t>(hex >> 8),
            static_cast<std::uint8_t>(hex)};
}

}

// A different hash for each colour.
template <>
struct std::hash<SkinKit::RGBColor> {
    std::size_t operator()(const SkinKit::RGBColor& color) const
    {
        return static_cast<std::size_t>(color.red) << 16 |
               static_cast<std::size_t>(color.green) << 8 | color.blue;
    }
};
