#pragma once

#include "SkinKit/Windows/WindowRenderer.h"

#include <string_view>
#include <utility>

// For the sources that define a window.
namespace SkinKit {

// Draws a skin's sprites onto a canvas, in window pixels.
struct SpriteDrawer {
    Canvas& context;
    const Skin& skin;

    // The sprite at its own size with its top left corner at `at`. Draws nothing where the skin has
    // none of it, and no more than the sheet has. Returns whether there was anything to draw.
    bool draw(std::string_view name, Point at) const;
    // The same with pixels that were looked up already, or were not found.
    bool draw(const std::optional<Image>& image, Point at) const;
    // From the top left corner of `area`, and nothing outside of it.
    bool drawClipped(std::string_view name, const Rect& area) const;
};

namespace WindowDrawing {

// The scale that counts: 1 at the least.
int effectiveScale(int scale);

// A window's size at this scale, or nothing when no raster can hold it.
std::optional<Size> size(Size window, std::int64_t scale);

// A transparent canvas for a window at this scale, itself still at scale 1. A window that no raster
// can hold is a programming error.
Canvas makeCanvas(Size window, int scale);

// Moves the canvas's origin to a window's top left corner and clips to the window, and to its
// outline if there is one. A window that no raster can hold is a programming error.
void enter(Canvas& canvas, Point at, Size window, const SkinRegion::Polygons* outline);

// Paints a window with its top left corner at `at`, both in the drawer's pixels.
template <WindowKind Window>
void paint(const SpriteDrawer& drawer, Point at, const typename Window::State& state, int scale,
           Clip clip)
{
    const SavedCanvasState saved(drawer.context);
    enter(drawer.context, at, Window::size(state),
          clip == Clip::toRegion ? Window::outline(drawer.skin.region, state) : nullptr);
    Window::paint(drawer, state, scale, clip);
}

}

// Instantiated once for each window, in the source that defines it.
template <WindowKind Window>
std::optional<Size> WindowRenderer<Window>::size(const State& state, std::int64_t scale)
{
    return WindowDrawing::size(Window::size(state), scale);
}

template <WindowKind Window>
Image WindowRenderer<Window>::render(const Skin& skin, const State& state, int scale, Clip clip)
{
    Canvas canvas = WindowDrawing::makeCanvas(Window::size(state), scale);
    draw(canvas, {0, 0}, skin, state, scale, clip);
    return std::move(canvas).image();
}

template <WindowKind Window>
void WindowRenderer<Window>::draw(Canvas& canvas, Point at, const Skin& skin, const State& state,
                                  int scale, Clip clip)
{
    const SavedCanvasState saved(canvas);
    canvas.translate(at);
    canvas.scale(WindowDrawing::effectiveScale(scale));
    WindowDrawing::paint<Window>({canvas, skin}, {0, 0}, state,
                                 WindowDrawing::effectiveScale(scale), clip);
}

}
