#pragma once

#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Skin.h"
#include "SkinKit/Windows/Main/MainWindowLayout.h"
#include "SkinKit/Windows/Main/MainWindowState.h"
#include "SkinKit/Windows/WindowDrawing.h"

#include <cstdint>
#include <optional>

// Draws the main window rolled up to its title bar: 275 × 14 pixels times an integer scale, each
// pixel replicated, nothing smoothed. What a skin lacks is left out. A scale below 1 counts as 1;
// one whose raster cannot exist is a programming error. Keeps no state, so renders may run on any
// number of threads.
//
// Of the state it shows the focus, the clock, the position and the visualizer, whose bars and peaks
// count the rows of the shaded layout (VisLayout::shade): 5 of a window pixel at scale 1, 10 of
// half a window pixel above.
namespace SkinKit::MainShadeRenderer {

using MainWindowLayout::TitleButton;
using WindowDrawing::Clip; // the region is the section "windowshade"

// The pixels of the window at this scale, or nothing when no raster can hold it.
std::optional<Size> size(std::int64_t scale);

// The background shows the title buttons released, as the focus has them; `pressed` is the one that
// the pointer holds down.
Image render(const Skin& skin, const MainWindowState& state, int scale, Clip clip,
             std::optional<TitleButton> pressed = std::nullopt);

// Into a caller's canvas, its top left corner at `at` in the canvas's current pixels, `scale` times
// as large as they are. The canvas's state is as before afterwards.
void draw(Canvas& canvas, Point at, const Skin& skin, const MainWindowState& state, int scale,
          Clip clip, std::optional<TitleButton> pressed = std::nullopt);

}
