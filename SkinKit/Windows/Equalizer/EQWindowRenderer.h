#pragma once

#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Skin.h"
#include "SkinKit/Windows/Equalizer/EQWindowState.h"
#include "SkinKit/Windows/WindowDrawing.h"

#include <cstdint>
#include <optional>

// Draws the equalizer window, 275 × 116 pixels or shaded to 275 × 14, times an integer scale, each
// pixel replicated, nothing smoothed. What a skin lacks is left out. A scale below 1 counts as 1;
// one whose raster cannot exist is a programming error. Keeps no state, so renders may run on any
// number of threads.
namespace SkinKit::EQWindowRenderer {

using WindowDrawing::Clip; // the region is the section "equalizer", shaded "equalizerws"

// The pixels of the window at this scale, or nothing when no raster can hold it.
std::optional<Size> size(const EQWindowState& state, std::int64_t scale);

// The whole window.
Image render(const Skin& skin, const EQWindowState& state, int scale, Clip clip);

// The whole window into a caller's canvas, its top left corner at `at` in the canvas's current
// pixels, `scale` times as large as they are. The canvas's state is as before afterwards.
void draw(Canvas& canvas, Point at, const Skin& skin, const EQWindowState& state, int scale,
          Clip clip);

}
