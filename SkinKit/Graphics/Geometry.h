#pragma once

#include <climits>
#include <cstdint>
#include <vector>

// Whole-pixel and fractional geometry. Origin top left, x to the right, y downwards. Every program
// that uses the library includes this, so it does without <algorithm>, which takes longer to
// compile than all of our headers.
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

// The value within 0 … `max`; not-a-number gives 0.
constexpr double clamped(double value, double max)
{
    if (value > 0)
        return value < max ? value : max;
    return 0;
}

// The nearest value within least … most.
constexpr int clamped(int value, int least, int most)
{
    if (value < least)
        return least;
    return value > most ? most : value;
}

// Where what begins at `begin` ends, held at the ends of the type.
constexpr int endOf(int begin, int length)
{
    const auto end = std::int64_t{begin} + length;
    if (end < INT_MIN)
        return INT_MIN;
    return end > INT_MAX ? INT_MAX : static_cast<int>(end);
}

// The pixels of columns x … right() - 1 and rows y … bottom() - 1. A rectangle from anywhere may
// reach past the last coordinate; it ends there.
struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    constexpr int right() const { return endOf(x, width); }
    constexpr int bottom() const { return endOf(y, height); }
    constexpr Point origin() const { return {x, y}; }
    constexpr Size size() const { return {width, height}; }
    constexpr bool isEmpty() const { return width <= 0 || height <= 0; }
    bool operator==(const Rect&) const = default;
};

// The pixels in both; empty when there are none.
constexpr Rect intersection(const Rect& a, const Rect& b)
{
    const int left = a.x > b.x ? a.x : b.x;
    const int top = a.y > b.y ? a.y : b.y;
    const int right = a.right() < b.right() ? a.right() : b.right();
    const int bottom = a.bottom() < b.bottom() ? a.bottom() : b.bottom();
    return {left, top, right > left ? right - left : 0, bottom > top ? bottom - top : 0};
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

// Closed polygons, to be filled together by the non-zero winding rule. The last point of each is
// joined to its first.
struct Path {
    // A corner; the unit is that of whoever fills the path.
    struct Vertex {
        std::int64_t x = 0;
        std::int64_t y = 0;

        bool operator==(const Vertex&) const = default;
    };

    std::vector<std::vector<Vertex>> polygons;

    bool operator==(const Path&) const = default;
};

}
