#pragma once

#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Graphics/Image.h"

#include <functional>
#include <optional>

namespace VelmarThumbnail {

// Where a reply is drawn: a canvas of device pixels, so many a point, whose origin is the top left
// corner of the area that the reply asked for.
struct DrawingContext {
    SkinKit::Canvas& canvas;
    double scale = 1;
};

// A length of so many points in device pixels. A scale that is no positive number counts as 1.
double devicePixels(double points, double scale);

// A picture yet to be drawn, and the area that it wants. The callback owns all that it needs: it
// may be called at any time, on any thread, several times, and after everything else of the request
// is gone. It tells whether it drew.
struct ThumbnailReply {
    SkinKit::SizeF contextSize; // points
    std::function<bool(const DrawingContext&)> draw;

    // The whole area drawn, in device pixels; nothing when the callback did not draw. Sides that
    // are no whole number of pixels are rounded. An area that no raster can hold is a programming
    // error.
    std::optional<SkinKit::Image> image(double scale) const;
};

}
