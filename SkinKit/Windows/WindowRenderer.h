#pragma once

#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Skin.h"

#include <concepts>
#include <cstdint>
#include <optional>

namespace SkinKit {

struct SpriteDrawer;

// How much of a window is drawn.
enum class Clip {
    none,
    toRegion, // what is inside the polygons that the skin has for the window, if it has any
};

// A kind of window, as far as WindowRenderer must know it. All lengths are window pixels.
template <class Window>
concept WindowKind = requires(const SpriteDrawer& drawer, const SkinRegion& region,
                              const typename Window::State& state, int scale, Clip clip) {
    // How large the window is in this state.
    { Window::size(state) } -> std::same_as<Size>;
    // The section of the region that clips the window; null for none.
    { Window::outline(region, state) } -> std::same_as<const SkinRegion::Polygons*>;
    // Paints onto a canvas that is already placed, scaled and clipped for the window. `scale`, 1 or
    // more, is for what looks different at larger scales, `clip` for windows inside the window.
    { Window::paint(drawer, state, scale, clip) } -> std::same_as<void>;
};

// Draws one kind of window. The state holds everything that shows apart from the skin, also whether
// the window is shaded.
//
// A window is drawn `scale` times as large as its own pixels, each replicated, nothing smoothed; a
// scale below 1 counts as 1. Parts that the skin lacks are left out. Drawing a window that no
// raster can hold is a programming error. Nothing is kept between two calls, so any number of
// threads may draw.
template <WindowKind Window>
struct WindowRenderer {
    using State = typename Window::State;

    // The device pixels of the window, or nothing when no raster can hold it.
    static std::optional<Size> size(const State& state, std::int64_t scale);

    // The window as an image, transparent where nothing is drawn.
    static Image render(const Skin& skin, const State& state, int scale, Clip clip);

    // The same onto a caller's canvas: the window's top left corner at `at` in the canvas's current
    // pixels, `scale` times as large as they are. Nothing outside the window is touched, and the
    // canvas's state is afterwards as before.
    static void draw(Canvas& canvas, Point at, const Skin& skin, const State& state, int scale,
                     Clip clip);
};

}
