#pragma once

#include "SkinKit/Graphics/Geometry.h"
#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Graphics/SpanMask.h"

#include <memory>
#include <vector>

namespace SkinKit {

// The one mutable raster: draws images and fills rectangles at integer positions, each window pixel
// replicated into a block of scale × scale device pixels. Source over destination, never smoothed.
//
// Every coordinate given to a drawing call is in window pixels, relative to the current origin.
// What falls outside the raster or the clip is left out; no call fails. Not for sharing between
// threads while drawing.
class Canvas {
public:
    // A transparent raster of this many device pixels, at scale 1 with the origin at its top left.
    explicit Canvas(Size deviceSize);

    // In device pixels, whatever the scale.
    Size size() const { return pixels_.size(); }
    std::span<const Pixel> row(int y) const { return pixels_.row(y); }

    // Where drawing goes: the part of the state that a drawing routine may borrow and change.
    struct State {
        // Device pixel of window pixel (0, 0).
        std::int64_t originX = 0;
        std::int64_t originY = 0;
        int scale = 1;
        Rect clip; // device pixels, inside the raster
        std::shared_ptr<const SpanMask> mask;
    };
    const State& state() const { return state_; }
    void setState(State state) { state_ = std::move(state); }

    // Moves the origin by window pixels.
    void translate(Point by);
    // Makes every window pixel `factor` times larger than it is now; factor >= 1.
    void scale(int factor);
    // Narrow the clip to a rectangle, or to polygons: those device pixels whose centre lies inside
    // by the non-zero winding rule. A path without polygons clips everything away.
    void clip(const Rect& rect);
    void clip(const Path& path);

    // Draws the whole image at its own size with its top left corner at `at`.
    void draw(const Image& image, Point at);
    // Draws the whole image stretched to `cell`: column i of the cell shows the image's column
    // floor((i + 0.5) * image width / cell width), and so the rows.
    void draw(const Image& image, const Rect& cell);
    // Paints a rectangle opaque.
    void fill(const Rect& rect, const RGBColor& color);

    // Makes every device pixel transparent, whatever the clip.
    void clear();

    // The picture as it is now. From a canvas given up for good it costs no copy. Whoever knows
    // that every pixel was painted opaque says so.
    Image image(Image::Alpha alpha = Image::Alpha::any) const&;
    Image image(Image::Alpha alpha = Image::Alpha::any) &&;

private:
    Rect visibleDevicePixels(const Rect& cell) const;
    void drawVisible(const Image& image, const Rect& cell, const Rect& device);
    void placeRow(std::span<const Pixel> source, int x, int y, bool opaque);

    PixelBuffer pixels_;
    State state_;
    std::vector<Pixel> widened_; // one device row, kept from call to call
    std::vector<Pixel> stretched_;
};

// Puts a canvas's state back at the end of a block.
class SavedCanvasState {
public:
    explicit SavedCanvasState(Canvas& canvas) : canvas_(canvas), state_(canvas.state()) {}
    ~SavedCanvasState() { canvas_.setState(std::move(state_)); }
    SavedCanvasState(const SavedCanvasState&) = delete;
    SavedCanvasState& operator=(const SavedCanvasState&) = delete;

private:
    Canvas& canvas_;
    Canvas::State state_;
};

}
