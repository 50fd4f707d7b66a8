#include "SkinKit/Windows/Equalizer/EQGraph.h"

#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Windows/Equalizer/CubicSpline.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace SkinKit::EQGraph {
namespace {

constexpr int lastRow = size.height - 1;
using RowColors = std::array<Pixel, size.height>;

// Not rounded yet.
double rowForValue(double value)
{
    return (EQLayout::maxValue - EQLayout::clampedValue(value)) / EQLayout::maxValue * lastRow;
}

std::optional<RowColors> lineColors(const Skin& skin)
{
    const auto strip = skin.image("EQ_GRAPH_LINE_COLORS");
    if (!strip || strip->height() != size.height)
        return std::nullopt;
    RowColors colors{};
    for (int y = 0; y < size.height; ++y)
        colors[static_cast<std::size_t>(y)] = strip->pixel({0, y}) | packPixel(0, 0, 0);
    return colors;
}

// A step from one column to the next is filled up in the latter.
void drawCurve(PixelBuffer& pixels, std::span<const double> values, const RowColors& colors)
{
    int previous = knotYForValue(values.empty() ? EQLayout::midValue : values.front());
    std::size_t column = paddingLeft;
    for (const int y : curve(values)) {
        const auto [top, bottom] = std::minmax({previous, y});
        for (int row = top; row <= bottom; ++row)
            pixels.row(row)[column] = colors[static_cast<std::size_t>(row)];
        previous = y;
        ++column;
    }
}

}

int knotYForValue(double value)
{
    return static_cast<int>(std::lround(rowForValue(value)));
}

int preampLineYForValue(double value)
{
    return static_cast<int>(
        std::lround(EQLayout::clampedValue(value) / EQLayout::maxValue * lastRow));
}

std::array<int, columnCount> curve(std::span<const double> values)
{
    std::array<double, EQLayout::bandCount> xs{};
    std::array<double, EQLayout::bandCount> ys{};
    for (std::size_t i = 0; i < xs.size(); ++i) {
        xs[i] = static_cast<double>(i) * bandSpacingX;
        ys[i] = rowForValue(i < values.size() ? values[i] : EQLayout::midValue);
    }

    std::array<int, columnCount> rows{};
    std::ranges::transform(CubicSpline::interpolate(xs, ys), rows.begin(), [](double height) {
        return static_cast<int>(std::clamp(std::floor(height + 0.5), 0.0, double{lastRow}));
    });
    return rows;
}

std::optional<Image> render(const Skin& skin, std::span<const double> values, double preamp)
{
    const auto colors = lineColors(skin);
    if (!colors)
        return std::nullopt;

    Canvas canvas(size);
    if (const auto background = skin.image("EQ_GRAPH_BACKGROUND"))
        canvas.draw(*background, Point{0, 0});
    if (const auto line = skin.image("EQ_PREAMP_LINE"))
        canvas.draw(*line, Point{0, preampLineYForValue(preamp)});

    // The curve goes straight into the pixels: drawn pixel by pixel or as a layer of its own it
    // costs more than all the rest.
    auto pixels = PixelBuffer::uninitialized(size);
    for (int y = 0; y < size.height; ++y)
        std::ranges::copy(canvas.row(y), pixels.row(y).begin());
    drawCurve(pixels, values, *colors);
    return Image(std::move(pixels), Image::Alpha::any);
}

}
