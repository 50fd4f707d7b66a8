#pragma once

#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Skin.h"
#include "SkinKit/Windows/Main/MainWindowState.h"
#include "SkinKit/Windows/WindowDrawing.h"

#include <cstdint>
#include <optional>

// Draws the classic main window: 275 × 116 pixels times an integer scale, each pixel replicated,
// nothing smoothed. What a skin lacks is left out. A scale below 1 counts as 1; one whose raster
// cannot exist is a programming error. Keeps no state, so renders may run on any number of threads.
namespace SkinKit::MainWindowRenderer {

using WindowDrawing::Clip; // the region is the section "normal"

// The pixels of a window at this scale, or nothing when no raster can hold it.
std::optional<Size> size(std::int64_t scale);

// The whole window.
Image render(const Skin& skin, const MainWindowState& state, int scale, Clip clip);

// What never changes while the window keeps its focus, and the rest drawn over such an image (of
// the same scale), so that a player need not draw the one again and again. Not clipped.
Image renderBase(const Skin& skin, bool focused, int scale);
Image renderDynamic(const Image& base, const Skin& skin, const MainWindowState& state, int scale);

// The whole window into a caller's canvas, its top left corner at `at` in the canvas's current
// pixels, `scale` times as large as they are. The canvas's state is as before afterwards.
void draw(Canvas& canvas, Point at, const Skin& skin, const MainWindowState& state, int scale,
          Clip clip);

}
