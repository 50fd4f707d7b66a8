#pragma once

#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Graphics/RGBColor.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace SkinKit {

// Which window the visualizer is drawn for, and so how large it is.
class VisLayout {
public:
    static VisLayout main() { return VisLayout(std::nullopt); }
    // The shaded window's, drawn for a display scale: above 1 it has twice the pixels.
    static VisLayout shade(int displayScale) { return VisLayout(displayScale); }

    bool isMain() const { return !shadeScale_; }
    Size imageSize() const;
    int columnCount() const;
    int maxHeight() const;       // pixels of the tallest bar
    int backgroundWidth() const; // pixels of a row that the background covers
    int pointScale() const;      // pixels a window pixel

    bool operator==(const VisLayout&) const = default;

private:
    explicit VisLayout(std::optional<int> shadeScale) : shadeScale_(shadeScale) {}

    // Of the table of layouts.
    int row() const { return !shadeScale_ ? 0 : *shadeScale_ > 1 ? 2 : 1; }

    std::optional<int> shadeScale_; // none: the main window
};

// Paints one still frame of the spectrum or the oscilloscope, pixel by pixel, in a skin's colours:
// 0 background, 1 grid dots, 2 … 17 bars from top to bottom, 18 … 22 oscilloscope, 23 peaks.
class VisRenderer {
public:
    static constexpr int colorCount = 24;

    // Takes the first 24 colours; fewer are filled up with the last one, none with black.
    VisRenderer(std::span<const RGBColor> colors, VisLayout layout);

    const VisLayout& layout() const { return layout_; }
    int width() const { return layout_.imageSize().width; }
    int height() const { return layout_.imageSize().height; }
    int barColumns() const { return layout_.columnCount(); }

    // The colours and the pixels as words 0xAARRGGBB, row by row from the top.
    const std::array<std::uint32_t, colorCount>& packed() const { return packed_; }
    std::span<const std::uint32_t> templatePixels() const { return template_; }
    std::span<const std::uint32_t> pixels() const { return pixels_; }

    // Back to the background.
    void clear() { pixels_ = template_; }

    // A bar height and a peak height for each column, in pixels; every fourth column stays free.
    // The main layout's colours sit `pushDown` rows lower.
    void drawBars(std::span<const int> heights, std::span<const int> peaks, int pushDown);
    // A sample for each column, 0 on the centre line. The trace is drawn `pushDown` rows lower.
    void drawOscilloscope(std::span<const float> samples, int pushDown);

    // The picture as it is now, transparent where the background does not reach.
    Image makeImage() const;

private:
    std::uint32_t& at(int x, int y)
    {
        return pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width()) +
                       static_cast<std::size_t>(x)];
    }
    std::uint32_t color(int index) const { return packed_[static_cast<std::size_t>(index)]; }
    std::uint32_t barColor(int row, int pushDown) const;

    VisLayout layout_;
    std::array<std::uint32_t, colorCount> packed_{};
    std::vector<std::uint32_t> template_;
    std::vector<std::uint32_t> pixels_;
};

}
