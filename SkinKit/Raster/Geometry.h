#pragma once

#include <algorithm>

// Whole-pixel and fractional geometry. Origin top left, x to the right, y downwards.
namespace SkinKit {

struct Point {
    int x = 0;
    int y = 0;

    bool operator==(const Point&) const = default;
};

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
    const int left = std::max(a.x, b.x);
    const int top = std::max(a.y, b.y);
    return {left, top, std::max(0, std::min(a.right(), b.right()) - left),
            std::max(0, std::min(a.bottom(), b.bottom()) - top)};
}

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

// Sizes and places in points (a point may be more or less than a device pixel).
struct SizeF {
    double width = 0;
    double height = 0;

    bool operator==(const SizeF&) const = default;
};

struct RectF {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    bool operator==(const RectF&) const = default;
};

}
