#include "examples/samples/Painter.h"

#include <algorithm>

namespace samples {
namespace {

// Thresholds of an ordered 4 × 4 pattern, in sixteenths.
constexpr int pattern[4][4] = {
    {0,  8,  2,  10},
    {12, 4,  14, 6 },
    {3,  11, 1,  9 },
    {15, 7,  13, 5 }
};

}

Color mix(Color a, Color b, int share)
{
    const auto channel = [share](int from, int to) {
        return static_cast<std::uint8_t>((from * (256 - share) + to * share + 128) / 256);
    };
    return {channel(a.red, b.red), channel(a.green, b.green), channel(a.blue, b.blue),
            channel(a.alpha, b.alpha)};
}

int wave(int column, int length, int height)
{
    const int half = length / 2;
    const int place = (column % length + length) % length;
    const int inHalf = place % half;
    // 4 t (1 - t) for t = inHalf / half, rounded to nearest.
    const int rise = (8 * height * inHalf * (half - inHalf) + half * half) / (2 * half * half);
    return place < half ? -rise : rise;
}

Color Ramp::at(int row, int rows, int column) const
{
    if (steps == Steps::banded)
        return stops[static_cast<std::size_t>(std::clamp(row, 0, rows - 1)) * stops.size() /
                     static_cast<std::size_t>(rows)];
    const int steps256 = static_cast<int>(stops.size() - 1) * 256;
    const int place = rows > 1 ? std::clamp(row, 0, rows - 1) * steps256 / (rows - 1) : 0;
    const auto index = static_cast<std::size_t>(place / 256);
    if (index + 1 >= stops.size())
        return stops.back();
    const int share = place % 256;
    if (steps == Steps::dithered)
        return share > pattern[row & 3][column & 3] * 16 + 7 ? stops[index + 1] : stops[index];
    return mix(stops[index], stops[index + 1], share);
}

bool holds(const Rect& rect, int radius, Point pixel)
{
    if (!contains(rect, pixel))
        return false;
    // Distances of the pixel's centre from the corner circle's, in half pixels.
    const int fromSide = std::min(pixel.x - rect.x, rect.right() - 1 - pixel.x);
    const int fromEnd = std::min(pixel.y - rect.y, rect.bottom() - 1 - pixel.y);
    if (fromSide >= radius || fromEnd >= radius)
        return true;
    const int dx = 2 * (radius - fromSide) - 1;
    const int dy = 2 * (radius - fromEnd) - 1;
    return dx * dx + dy * dy <= 4 * radius * radius;
}

Painter::Painter(SkinKit::PixelBuffer& target)
    : target_(&target), area_{0, 0, target.size().width, target.size().height}, clip_(area_)
{
}

Painter Painter::part(const Rect& rect) const
{
    Painter part = *this;
    part.area_ = {area_.x + rect.x, area_.y + rect.y, rect.width, rect.height};
    part.clip_ = intersection(clip_, part.area_);
    return part;
}

void Painter::dot(Point at, Color color)
{
    const Point place{area_.x + at.x, area_.y + at.y};
    if (!contains(clip_, place))
        return;
    auto& pixel = target_->row(place.y)[static_cast<std::size_t>(place.x)];
    const auto source =
        SkinKit::premultiply(SkinKit::packPixel(color.red, color.green, color.blue, color.alpha));
    pixel = SkinKit::blend(source, pixel);
}

void Painter::fill(const Rect& rect, Color color)
{
    for (int y = rect.y; y < rect.bottom(); ++y)
        for (int x = rect.x; x < rect.right(); ++x)
            dot({x, y}, color);
}

void Painter::shade(const Rect& rect, const Ramp& ramp, int radius)
{
    for (int y = rect.y; y < rect.bottom(); ++y)
        for (int x = rect.x; x < rect.right(); ++x)
            if (holds(rect, radius, {x, y}))
                dot({x, y}, ramp.at(y - rect.y, rect.height, x - rect.x));
}

void Painter::box(const Rect& rect, const Surface& surface)
{
    // A pixel at the upper or left edge of an area takes one colour, one at the lower or right edge
    // the other.
    const auto edge = [](const Rect& area, int radius, Point at, Color top, Color bottom) {
        if (!holds(area, radius, {at.x, at.y - 1}) || !holds(area, radius, {at.x - 1, at.y}))
            return top;
        if (!holds(area, radius, {at.x, at.y + 1}) || !holds(area, radius, {at.x + 1, at.y}))
            return bottom;
        return none;
    };

    const bool hasRing = surface.ringTop.alpha > 0 || surface.ringBottom.alpha > 0;
    const Rect inner = hasRing ? inset(rect, 1) : rect;
    const int innerRadius = hasRing ? std::max(surface.radius - 1, 0) : surface.radius;
    for (int y = rect.y; y < rect.bottom(); ++y) {
        for (int x = rect.x; x < rect.right(); ++x) {
            if (holds(inner, innerRadius, {x, y})) {
                dot({x, y}, surface.fill.at(y - inner.y, inner.height, x - inner.x));
                dot({x, y}, edge(inner, innerRadius, {x, y}, surface.light, surface.dark));
            } else if (holds(rect, surface.radius, {x, y})) {
                // In the bend of a ring a pixel may touch no side; it goes with its half.
                const Color nearer =
                    2 * (y - rect.y) < rect.height ? surface.ringTop : surface.ringBottom;
                const Color side =
                    edge(rect, surface.radius, {x, y}, surface.ringTop, surface.ringBottom);
                dot({x, y}, side == none ? nearer : side);
            }
        }
    }
}

void Painter::stamp(std::span<const std::string_view> rows, Point at, Color color)
{
    for (std::size_t y = 0; y < rows.size(); ++y)
        for (std::size_t x = 0; x < rows[y].size(); ++x)
            if (rows[y][x] == '#')
                dot({at.x + static_cast<int>(x), at.y + static_cast<int>(y)}, color);
}

void Painter::put(const Image& image, Point at)
{
    const Rect place =
        intersection(clip_, {area_.x + at.x, area_.y + at.y, image.width(), image.height()});
    for (int y = place.y; y < place.bottom(); ++y)
        for (int x = place.x; x < place.right(); ++x)
            target_->row(y)[static_cast<std::size_t>(x)] =
                image.pixel({x - area_.x - at.x, y - area_.y - at.y});
}

}
