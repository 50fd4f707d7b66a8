#pragma once

#include "SkinKit/Graphics/Geometry.h"
#include "SkinKit/Graphics/Image.h"

#include <cstdint>
#include <span>

// Compares a render with a reference picture of the same window, pixel by pixel. Our picture's size
// is the canvas: both lie at its top left unscaled, what the reference has beyond it is cut off,
// and where the reference has nothing it is transparent. Pure; any thread.
namespace SkinKit::ImageDiff {

// Counts of pixels.
struct Result {
    std::int64_t compared = 0;        // neither picture is fully transparent there
    std::int64_t differing = 0;       // of those, any colour channel differs
    std::int64_t beyondTolerance = 0; // of those, one channel by more than the tolerance
    std::int64_t skippedTransparent = 0;
    std::int64_t differingOutsideIgnored = 0;
    std::int64_t beyondToleranceOutsideIgnored = 0;

    bool operator==(const Result&) const = default;
};

// Alpha itself is never compared, and colours are compared as premultiplied. `ignoring` are
// rectangles in pixels of our picture; what differs inside any of them is counted apart.
Result compare(const Image& ours, const Image& reference, std::uint8_t tolerance = 0,
               std::span<const Rect> ignoring = {});

// Our picture with every differing pixel in opaque magenta.
Image diffImage(const Image& ours, const Image& reference);

}
