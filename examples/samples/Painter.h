#pragma once

#include "SkinKit/Graphics/Image.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

// A small painter for pixel art: whole pixels, integer arithmetic, so that a picture is the same on
// every machine.
namespace samples {

using SkinKit::Image;
using SkinKit::Point;
using SkinKit::Rect;
using SkinKit::Size;

// A straight (not premultiplied) colour.
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 0;

    bool operator==(const Color&) const = default;
};

inline constexpr Color none{};

// The colour written 0xRRGGBB.
constexpr Color hex(std::uint32_t digits, std::uint8_t alpha = 255)
{
    return {static_cast<std::uint8_t>(digits >> 16), static_cast<std::uint8_t>(digits >> 8),
            static_cast<std::uint8_t>(digits), alpha};
}

// From `a` at share 0 to `b` at share 256.
Color mix(Color a, Color b, int share);

// A wave made of parabolas: how far its line lies from its middle at a column, up to `height`.
int wave(int column, int length, int height);

// Colours from top to bottom.
struct Ramp {
    enum class Steps {
        smooth,
        dithered, // only the stops themselves, in an ordered pattern
        banded,   // only the stops themselves, in bands
    };

    std::vector<Color> stops;
    Steps steps = Steps::smooth;

    // The colour in row `row` of `rows`; the column matters to the pattern alone.
    Color at(int row, int rows, int column = 0) const;
};

// What a box is made of. The ring is its outermost pixel, and lies outside the fill; light and dark
// are the next pixel inwards at the top and left, and at the bottom and right.
struct Surface {
    Ramp fill;
    Color ringTop = none;
    Color ringBottom = none;
    Color light = none;
    Color dark = none;
    int radius = 0;
};

constexpr Rect inset(const Rect& rect, int by)
{
    return {rect.x + by, rect.y + by, rect.width - 2 * by, rect.height - 2 * by};
}

// Whether a rectangle with rounded corners holds a pixel.
bool holds(const Rect& rect, int radius, Point pixel);

// Paints on a raster or a part of one, whose top left is (0, 0); what falls outside is left out.
// Colours with alpha lie over what is there.
class Painter {
public:
    explicit Painter(SkinKit::PixelBuffer& target);

    Size size() const { return {area_.width, area_.height}; }
    Rect bounds() const { return {0, 0, area_.width, area_.height}; }
    Painter part(const Rect& rect) const;

    void dot(Point at, Color color);
    void fill(const Rect& rect, Color color);
    void shade(const Rect& rect, const Ramp& ramp, int radius = 0);
    void box(const Rect& rect, const Surface& surface);

    // Every "#" of the rows in one colour.
    void stamp(std::span<const std::string_view> rows, Point at, Color color);

    // Puts the image in place of what is there.
    void put(const Image& image, Point at);

private:
    SkinKit::PixelBuffer* target_;
    Rect area_; // on the raster
    Rect clip_; // on the raster, inside it
};

}
