#pragma once

#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Skin.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowState.h"

#include <cstdint>
#include <optional>

// Draws the classic playlist window in any of its sizes, times an integer scale, each pixel
// replicated, nothing smoothed. What a skin lacks is left out; the list's own letters are the same
// with every skin. Skins have no outline for a window that changes its size, so it is never
// clipped. A scale below 1 counts as 1; a window whose raster cannot exist is a programming error.
// Keeps no state, so renders may run on any number of threads.
namespace SkinKit::PlaylistWindowRenderer {

// The pixels of a window at this scale, or nothing when no raster can hold it.
std::optional<Size> size(PlaylistLayout::Steps steps, std::int64_t scale);

// The whole window.
Image render(const Skin& skin, const PlaylistWindowState& state, int scale);

// Into a caller's canvas, the window's top left corner at `at` in the canvas's current pixels,
// `scale` times as large as they are. The canvas's state is as before afterwards.
void draw(Canvas& canvas, Point at, const Skin& skin, const PlaylistWindowState& state, int scale);

// The same for the strip that is left when the window is shaded; it shows the current entry.
std::optional<Size> shadeSize(PlaylistLayout::Steps steps, std::int64_t scale);
Image renderShade(const Skin& skin, const PlaylistWindowState& state, int scale);
void drawShade(Canvas& canvas, Point at, const Skin& skin, const PlaylistWindowState& state,
               int scale);

}
