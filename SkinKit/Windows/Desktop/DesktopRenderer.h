#pragma once

#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Skin.h"
#include "SkinKit/Windows/Desktop/DesktopState.h"
#include "SkinKit/Windows/WindowDrawing.h"

#include <cstdint>
#include <optional>

// Draws a player's windows as people keep them on their desktop: the main window on top, below it
// the equalizer and the playlist, their left edges in line. Everything else is as the windows' own
// renderers have it.
namespace SkinKit::DesktopRenderer {

using WindowDrawing::Clip; // each window to its own section of the region

// The pixels of all windows at this scale, or nothing when no raster can hold them.
std::optional<Size> size(const DesktopState& state, std::int64_t scale);

// All windows in one picture, transparent where none is.
Image render(const Skin& skin, const DesktopState& state, int scale, Clip clip);

}
