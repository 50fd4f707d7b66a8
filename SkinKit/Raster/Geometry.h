#pragma once

#include <algorithm>
#include <cstdint>

// Whole-pixel and fractional geometry. Origin top left, x to the right, y downwards.
namespace SkinKit {

// A pixel, or the corner at its top left.
struct Point {
    int x = 0;
    int y = 0;

    bool operator==(const Point&) const = default;
};

// Columns and rows.
struct Size {
    int width = 0;
    int height = 0;

    constexpr bool isEmpty() const { return width <= 0 || height <= 0; }
    bool operator==(const Size&) const = default;
};

// The pixels of columns x … right() - 1 and rows y … bottom() - 1.
struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    constexpr int right() const { return x + width; }
    constexpr int bottom() const { return y + height; }
    constexpr Point origin() const { return {x, y}; }
    constexpr Size size() const { return {width, height}; }
    constexpr bool isEmpty() const { return width <= 0 || height <= 0; }
    bool operator==(const Rect&) const = default;
};

// The pixels in both; empty when there are none.
constexpr Rect intersection(const Rect& a, const Rect& b)
{
    // The far edges of a rectangle from anywhere need not fit an int.
    const auto end = [](std::int64_t begin, std::int64_t length) { return begin + length; };
    const int left = std::max(a.x, b.x);
    const int top = std::max(a.y, b.y);
    const auto width = std::min(end(a.x, a.width), end(b.x, b.width)) - left;
    const auto height = std::min(end(a.y, a.height), end(b.y, b.height)) - top;
    return {left, top, static_cast<int>(std::max<std::int64_t>(0, width)),
            static_cast<int>(std::max<std::int64_t>(0, height))};
}

// Whether all of `inner`, or the pixel, lies in the rectangle.
constexpr bool contains(const Rect& outer, const Rect& inner)
{
    return inner.x >= outer.x && inner.y >= outer.y && inner.right() <= outer.right() &&
           inner.bottom() <= outer.bottom();
}

constexpr bool contains(const Rect& rect, Point point)
{
    return point.x >= rect.x && point.y >= rect.y && point.x < rect.right() &&
           point.y < rect.bottom();
}

// coordinate * factor + offset, held at the ends of the type.
constexpr std::int64_t scaledCoordinate(std::int64_t coordinate, std::int64_t factor,
                                        std::int64_t offset = 0)
{
    std::int64_t product = 0;
    if (__builtin_mul_overflow(coordinate, factor, &product))
        return (coordinate < 0) == (factor < 0) ? INT64_MAX : INT64_MIN;
    std::int64_t sum = 0;
    if (__builtin_add_overflow(product, offset, &sum))
        return offset < 0 ? INT64_MIN : INT64_MAX;
    return sum;
}

// Sizes and places in points (a point may be more or less than a device pixel).
struct SizeF {
    double width = 0;
    double height = 0;

    bool operator==(const SizeF&) const = default;
};

// The area from x to x + width and from y to y + height.
struct RectF {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    bool operator==(const RectF&) const = default;
};

}
