#pragma once

#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Skin.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace SkinKit {

// Draws a skin's sprites onto a canvas, in window pixels.
struct SpriteDrawer {
    Canvas& context;
    const Skin& skin;

    // The sprite at its own size with its top left corner at `at`. Draws nothing where the skin has
    // none of it, and no more than the sheet has. Tells whether there was anything to draw.
    bool draw(std::string_view name, Point at) const;
    // The same with pixels that were looked up already, or were not found.
    bool draw(const std::optional<Image>& image, Point at) const;
    // From the top left corner of `area`, and nothing outside of it.
    bool drawClipped(std::string_view name, const Rect& area) const;
};

// What the renderers of all windows do alike. A window has a size in window pixels and is drawn
// `scale` times as large, each pixel replicated; a scale below 1 counts as 1.
namespace WindowDrawing {

// What of a window is drawn.
enum class Clip {
    none,
    toRegion, // to the polygons that the skin has for the window; without them nothing is clipped
};

// The scale that counts: 1 at the least.
int effectiveScale(int scale);

// The pixels of a window at this scale, or nothing when no raster can hold it.
std::optional<Size> size(Size window, std::int64_t scale);

// A transparent canvas for a window at this scale, itself still at scale 1. A window that no raster
// can hold is a programming error.
Canvas makeCanvas(Size window, int scale);

// Makes a canvas's pixels those of a window of `size` for the rest of a block: its top left corner
// at `at` in the canvas's current pixels, `scale` times as large as they are. Nothing is drawn
// outside the window, nor outside `outline` if there is one and `clip` says so. Afterwards the
// canvas's state is as before.
class Placement {
public:
    Placement(Canvas& canvas, Point at, Size size, int scale, const SkinRegion::Polygons* outline,
              Clip clip);

private:
    SavedCanvasState saved_;
};

}

}
