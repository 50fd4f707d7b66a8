#pragma once

#include "SkinKit/Graphics/Geometry.h"

// How large to draw a window for a thumbnail of a given size, so that its pixels fall on whole
// device pixels whenever there is room for them.
namespace SkinKit::ThumbnailFit {

// How to draw the window, and where.
struct Result {
    int renderScale = 1; // the integer scale to draw the window at
    SizeF contextSize;   // points: the area to ask for
    RectF imageRect;     // points: where the window goes in it; fractions are kept
    bool smooth = false; // the window must shrink, so it is drawn with interpolation

    bool operator==(const Result&) const = default;
};

// `maximumSize` and `minimumSize` are in points, `scale` is the display's pixels a point, `window`
// the window's size in pixels. Sizes and scales that make no sense are read as the least that does.
Result fit(SizeF maximumSize, SizeF minimumSize, double scale, Size window);

}
