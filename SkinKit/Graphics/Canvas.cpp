#include "SkinKit/Graphics/Canvas.h"

#include "SkinKit/Base/Check.h"

#include <algorithm>
#include <cstring>

namespace SkinKit {
namespace {

// How far a caller may move the origin before places stop meaning anything; far beyond any raster,
// and small enough that no sum below overflows.
constexpr std::int64_t farthestOrigin = std::int64_t{1} << 48;

// Repeats each pixel N times. With N known the compiler stores whole vectors.
template <int N>
void widenBy(std::span<const Pixel> source, Pixel* target)
{
    for (const Pixel pixel : source) {
        std::fill_n(target, N, pixel);
        target += N;
    }
}

void widen(std::span<const Pixel> source, int scale, Pixel* target)
{
    switch (scale) {
    case 1: std::memcpy(target, source.data(), source.size_bytes()); return;
    case 2: widenBy<2>(source, target); return;
    case 3: widenBy<3>(source, target); return;
    case 4: widenBy<4>(source, target); return;
    case 8: widenBy<8>(source, target); return;
    default:
        for (const Pixel pixel : source) {
            std::fill_n(target, scale, pixel);
            target += scale;
        }
    }
}

void blendRow(std::span<const Pixel> source, Pixel* target)
{
    for (const Pixel pixel : source) {
        const unsigned alpha = alphaOf(pixel);
        if (alpha == 255)
            *target = pixel;
        else if (alpha != 0)
            *target = blend(pixel, *target);
        ++target;
    }
}

}

Canvas::Canvas(Size deviceSize) : pixels_(PixelBuffer::transparent(deviceSize))
{
    state_.clip = {0, 0, deviceSize.width, deviceSize.height};
}

void Canvas::translate(Point by)
{
    const auto moved = [this](std::int64_t origin, int distance) {
        return std::clamp(scaledCoordinate(distance, state_.scale, origin), -farthestOrigin,
                          farthestOrigin);
    };
    state_.originX = moved(state_.originX, by.x);
    state_.originY = moved(state_.originY, by.y);
}

void Canvas::scale(int factor)
{
    check(factor >= 1, "a canvas is only ever scaled up");
    check(!__builtin_mul_overflow(state_.scale, factor, &state_.scale), "a scale out of range");
}

// The device pixels of `cell` that the clip lets through.
Rect Canvas::visibleDevicePixels(const Rect& cell) const
{
    const Rect& clip = state_.clip;
    const auto within = [](std::int64_t value, int low, int high) {
        return static_cast<int>(std::clamp<std::int64_t>(value, low, high));
    };
    const auto edgeX = [&](std::int64_t x) {
        return within(scaledCoordinate(x, state_.scale, state_.originX), clip.x, clip.right());
    };
    const auto edgeY = [&](std::int64_t y) {
        return within(scaledCoordinate(y, state_.scale, state_.originY), clip.y, clip.bottom());
    };
    const int left = edgeX(cell.x);
    const int top = edgeY(cell.y);
    const int right = edgeX(std::int64_t{cell.x} + cell.width);
    const int bottom = edgeY(std::int64_t{cell.y} + cell.height);
    return {left, top, std::max(0, right - left), std::max(0, bottom - top)};
}

void Canvas::clip(const Rect& rect)
{
    state_.clip = visibleDevicePixels(rect);
}

void Canvas::clip(const Path& path)
{
    Path device = path;
    for (auto& polygon : device.polygons)
        for (auto& vertex : polygon)
            vertex = {scaledCoordinate(vertex.x, state_.scale, state_.originX),
                      scaledCoordinate(vertex.y, state_.scale, state_.originY)};
    const SpanMask mask = SpanMask::fill(device, state_.clip);
    state_.mask =
        std::make_shared<const SpanMask>(state_.mask ? mask.intersected(*state_.mask) : mask);
}

void Canvas::draw(const Image& image, Point at)
{
    draw(image, Rect{at.x, at.y, image.width(), image.height()});
}

void Canvas::draw(const Image& image, const Rect& cell)
{
    const Rect device = visibleDevicePixels(cell);
    if (!device.isEmpty())
        drawVisible(image, cell, device);
}

// Each visible row of the cell is cut and stretched to its visible columns, widened once, and then
// copied to the device rows it covers.
void Canvas::drawVisible(const Image& image, const Rect& cell, const Rect& device)
{
    const int scale = state_.scale;
    const std::int64_t cellLeft = scaledCoordinate(cell.x, scale, state_.originX);
    const std::int64_t cellTop = scaledCoordinate(cell.y, scale, state_.originY);
    // Columns of the cell that show, and how many device pixels of the first are cut off.
    const auto firstColumn = static_cast<int>((device.x - cellLeft) / scale);
    const auto endColumn = static_cast<int>((device.right() - 1 - cellLeft) / scale) + 1;
    const auto columns = static_cast<std::size_t>(endColumn - firstColumn);
    const auto cutOff = static_cast<std::size_t>((device.x - cellLeft) % scale);
    const auto deviceWidth = static_cast<std::size_t>(device.width);
    const auto deviceRow = [&](int y) { return pixels_.row(y).data() + device.x; };

    const auto sample = [](std::int64_t index, int source, int target) {
        return static_cast<int>((2 * index + 1) * source / (2 * std::int64_t{target}));
    };
    const bool stretchesColumns = image.width() != cell.width;
    const bool stretchesRows = image.height() != cell.height;
    // A row may be widened in place when it is copied, not blended, and no pixel of it is cut off.
    const bool inPlace = image.isOpaque() && !state_.mask &&
                         columns * static_cast<std::size_t>(scale) == deviceWidth;

    std::int64_t rowOfCell = (device.y - cellTop) / scale;
    for (int y = device.y; y < device.bottom(); ++rowOfCell) {
        const int endOfRow = static_cast<int>(
            std::min<std::int64_t>(device.bottom(), cellTop + (rowOfCell + 1) * scale));
        const auto source = image.row(stretchesRows ? sample(rowOfCell, image.height(), cell.height)
                                                    : static_cast<int>(rowOfCell));
        std::span<const Pixel> visible;
        if (stretchesColumns) {
            stretched_.resize(columns);
            for (std::size_t i = 0; i < columns; ++i)
                stretched_[i] = source[static_cast<std::size_t>(
                    sample(firstColumn + static_cast<std::int64_t>(i), image.width(), cell.width))];
            visible = stretched_;
        } else {
            visible = source.subspan(static_cast<std::size_t>(firstColumn), columns);
        }

        if (inPlace) {
            widen(visible, scale, deviceRow(y));
            for (int copy = y + 1; copy < endOfRow; ++copy)
                std::memcpy(deviceRow(copy), deviceRow(y), deviceWidth * sizeof(Pixel));
        } else if (scale == 1) {
            placeRow(visible, device.x, y, image.isOpaque());
        } else {
            widened_.resize(columns * static_cast<std::size_t>(scale));
            widen(visible, scale, widened_.data());
            const auto row = std::span(widened_).subspan(cutOff, deviceWidth);
            for (int copy = y; copy < endOfRow; ++copy)
                placeRow(row, device.x, copy, image.isOpaque());
        }
        y = endOfRow;
    }
}

// Copies or blends one device row, through the mask when there is one.
void Canvas::placeRow(std::span<const Pixel> source, int x, int y, bool opaque)
{
    Pixel* const row = pixels_.row(y).data();
    const auto place = [&](int begin, int end) {
        const auto part = source.subspan(static_cast<std::size_t>(begin - x),
                                         static_cast<std::size_t>(end - begin));
        if (opaque)
            std::memcpy(row + begin, part.data(), part.size_bytes());
        else
            blendRow(part, row + begin);
    };

    const int right = x + static_cast<int>(source.size());
    if (!state_.mask)
        return place(x, right);
    for (const auto& span : state_.mask->row(y)) {
        const int begin = std::max(span.begin, x);
        const int end = std::min(span.end, right);
        if (begin < end)
            place(begin, end);
    }
}

void Canvas::fill(const Rect& rect, const RGBColor& color)
{
    const Rect device = visibleDevicePixels(rect);
    if (device.isEmpty())
        return;
    widened_.assign(static_cast<std::size_t>(device.width), opaquePixel(color));
    for (int y = device.y; y < device.bottom(); ++y)
        placeRow(widened_, device.x, y, true);
}

void Canvas::clear()
{
    std::fill_n(pixels_.data(), pixels_.count(), transparentPixel);
}

Image Canvas::image(Image::Alpha alpha) const&
{
    auto copy = PixelBuffer::uninitialized(size());
    std::memcpy(copy.data(), pixels_.data(), pixels_.count() * sizeof(Pixel));
    return {std::move(copy), alpha};
}

Image Canvas::image(Image::Alpha alpha) &&
{
    return {std::move(pixels_), alpha};
}

}
