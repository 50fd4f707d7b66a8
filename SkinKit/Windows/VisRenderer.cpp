#include "SkinKit/Windows/VisRenderer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace SkinKit {
namespace {

constexpr int backgroundColor = 0;
constexpr int dotColor = 1;
constexpr int topBarColor = 2;
constexpr int shadeTraceColor = 18;
constexpr int peakColor = 23;
constexpr int barPitch = 4; // three columns and a gap

struct LayoutSizes {
    Size imageSize;
    int columnCount, maxHeight, backgroundWidth, pointScale;
};
// clang-format off
constexpr LayoutSizes layouts[] = {
    // image      columns  height  background  scale
    {{ 76, 16},   75,      15,      76,         1},  // main window
    {{ 76,  5},   37,       5,      38,         1},  // shaded
    {{152, 10},   75,      10,     152,         2},  // shaded, at larger display scales
};

// The colour of each row of the shaded layouts.
constexpr int smallShadeBars[] = {4, 8, 11, 14, 17};
constexpr int largeShadeBars[] = {4, 5, 7, 8, 10, 11, 13, 14, 16, 17};

// The colour of the main layout's trace by its place before clamping, two places a colour:
// brightest at the centre line.
constexpr int traceColors[] = {21, 20, 19, 18, 19, 20, 21, 22};
// clang-format on

int traceColor(int place)
{
    return traceColors[std::clamp(place, 0, 15) / 2];
}

// Where a sample is in an image of 16 rows, before clamping.
int tracePlace(float sample)
{
    constexpr int centre = 7;
    constexpr float rows = 16;
    constexpr float farOut = 1e6F;
    const float offset = std::isnan(sample) ? -farOut : std::clamp(sample * rows, -farOut, farOut);
    return static_cast<int>(std::lround(offset)) + centre;
}

// The same on the rows that the layout has.
int traceRow(const VisLayout& layout, int place)
{
    const auto shrunk = [place](int up, int rows, int down) {
        return static_cast<int>(std::floor((place + up) / 16.0 * rows + 0.5)) - down;
    };
    const int height = layout.imageSize().height;
    const int row = layout.isMain()            ? place
                    : layout.pointScale() == 1 ? shrunk(6, height, 2)
                                               : shrunk(8, height, 5);
    return std::clamp(row, 0, height - 1);
}

}

Size VisLayout::imageSize() const
{
    return layouts[row()].imageSize;
}
int VisLayout::columnCount() const
{
    return layouts[row()].columnCount;
}
int VisLayout::maxHeight() const
{
    return layouts[row()].maxHeight;
}
int VisLayout::backgroundWidth() const
{
    return layouts[row()].backgroundWidth;
}
int VisLayout::pointScale() const
{
    return layouts[row()].pointScale;
}

VisRenderer::VisRenderer(std::span<const RGBColor> colors, VisLayout layout) : layout_(layout)
{
    for (std::size_t i = 0; i < packed_.size(); ++i) {
        const RGBColor color = colors.empty() ? RGBColor{} : colors[std::min(i, colors.size() - 1)];
        packed_[i] = 0xFF000000U | static_cast<std::uint32_t>(color.red) << 16 |
                     static_cast<std::uint32_t>(color.green) << 8 | color.blue;
    }

    pixels_.resize(static_cast<std::size_t>(width()) * static_cast<std::size_t>(height()));
    for (int y = 0; y < height(); ++y)
        for (int x = 0; x < layout_.backgroundWidth(); ++x)
            at(x, y) =
                color(layout_.isMain() && x % 2 == 0 && y % 2 == 1 ? dotColor : backgroundColor);
    template_ = pixels_;
}

std::uint32_t VisRenderer::barColor(int row, int pushDown) const
{
    if (layout_.isMain())
        return color(static_cast<int>(std::clamp<long long>(
            static_cast<long long>(row) + topBarColor - pushDown, 0, colorCount - 1)));
    return color(layout_.pointScale() == 1 ? smallShadeBars[row] : largeShadeBars[row]);
}

void VisRenderer::drawBars(std::span<const int> heights, std::span<const int> peaks, int pushDown)
{
    const int columns =
        static_cast<int>(std::min(heights.size(), static_cast<std::size_t>(layout_.columnCount())));
    for (int x = 0; x < columns; ++x) {
        if (x % barPitch == barPitch - 1)
            continue;
        const auto column = static_cast<std::size_t>(x);
        const int barHeight = std::clamp(heights[column], 0, height());
        for (int y = height() - barHeight; y < height(); ++y)
            at(x, y) = barColor(y, pushDown);
        if (column < peaks.size() && peaks[column] > 0 && peaks[column] <= height())
            at(x, height() - peaks[column]) = color(peakColor);
    }
}

void VisRenderer::drawOscilloscope(std::span<const float> samples, int pushDown)
{
    const int columns =
        static_cast<int>(std::min(samples.size(), static_cast<std::size_t>(layout_.columnCount())));
    int previous = 0;
    for (int x = 0; x < columns; ++x) {
        const int place = tracePlace(samples[static_cast<std::size_t>(x)]);
        const int row = traceRow(layout_, place);
        const std::uint32_t ink = color(layout_.isMain() ? traceColor(place) : shadeTraceColor);

        // The run that joins this column to the one before: a falling trace starts below the
        // previous row, a rising one repeats it.
        int top = row;
        int bottom = row;
        if (x > 0 && previous < row)
            top = previous + 1;
        else if (x > 0)
            bottom = previous;
        for (int y = top; y <= bottom; ++y) {
            const long long pushed = static_cast<long long>(y) + pushDown;
            if (pushed >= 0 && pushed < height())
                at(x, static_cast<int>(pushed)) = ink;
        }
        previous = row;
    }
}

Image VisRenderer::makeImage() const
{
    auto raster = PixelBuffer::uninitialized(layout_.imageSize());
    bool opaque = true;
    for (std::size_t i = 0; i < pixels_.size(); ++i) {
        const std::uint32_t word = pixels_[i];
        raster.data()[i] = packPixel(word >> 16 & 0xFF, word >> 8 & 0xFF, word & 0xFF, word >> 24);
        opaque = opaque && word >> 24 == 255;
    }
    return {std::move(raster), opaque ? Image::Alpha::opaque : Image::Alpha::any};
}

}
