#pragma once

#include "SkinKit/Graphics/RGBColor.h"

#include <bit>
#include <cstdint>

// One pixel of a raster: premultiplied RGBA, the bytes in memory in the order red, green, blue,
// alpha; as a word the red byte is therefore the lowest.
namespace SkinKit {

// Red in the lowest byte, alpha in the highest.
using Pixel = std::uint32_t;

static_assert(std::endian::native == std::endian::little, "pixels are packed low byte first");

inline constexpr Pixel transparentPixel = 0;

// From channels of 0 … 255, premultiplied already.
constexpr Pixel packPixel(unsigned red, unsigned green, unsigned blue, unsigned alpha = 255)
{
    return red | green << 8 | blue << 16 | alpha << 24;
}
constexpr Pixel opaquePixel(const RGBColor& color)
{
    return packPixel(color.red, color.green, color.blue);
}

constexpr unsigned redOf(Pixel pixel)
{
    return pixel & 0xFF;
}
constexpr unsigned greenOf(Pixel pixel)
{
    return pixel >> 8 & 0xFF;
}
constexpr unsigned blueOf(Pixel pixel)
{
    return pixel >> 16 & 0xFF;
}
constexpr unsigned alphaOf(Pixel pixel)
{
    return pixel >> 24;
}

// value / 255 rounded to nearest, exact for 0 … 255 * 255.
constexpr unsigned div255(unsigned value)
{
    const unsigned biased = value + 128;
    return (biased + (biased >> 8)) >> 8;
}

// Source over destination.
constexpr Pixel blend(Pixel source, Pixel destination)
{
    const unsigned rest = 255 - alphaOf(source);
    return packPixel(redOf(source) + div255(redOf(destination) * rest),
                     greenOf(source) + div255(greenOf(destination) * rest),
                     blueOf(source) + div255(blueOf(destination) * rest),
                     alphaOf(source) + div255(alphaOf(destination) * rest));
}

// Straight colour and alpha to premultiplied and back, rounding to nearest. A transparent pixel
// has no colour: it is all zero both ways.
constexpr Pixel premultiply(Pixel straight)
{
    const unsigned alpha = alphaOf(straight);
    return packPixel(div255(redOf(straight) * alpha), div255(greenOf(straight) * alpha),
                     div255(blueOf(straight) * alpha), alpha);
}
constexpr Pixel unpremultiply(Pixel premultiplied)
{
    const unsigned alpha = alphaOf(premultiplied);
    if (alpha == 0)
        return transparentPixel;
    const auto straight = [alpha](unsigned channel) { return (channel * 255 + alpha / 2) / alpha; };
    return packPixel(straight(redOf(premultiplied)), straight(greenOf(premultiplied)),
                     straight(blueOf(premultiplied)), alpha);
}

}
