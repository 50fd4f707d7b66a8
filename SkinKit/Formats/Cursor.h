#pragma once

#include "SkinKit/Graphics/Image.h"

#include <variant>
#include <vector>

// What a skin's cursor files hold.
namespace SkinKit {

// One picture of a cursor.
struct CursorImage {
    Image image;
    Point hotSpot;    // the pixel that points; always inside the image
    int bitCount = 0; // bits a pixel as stored in the file

    bool operator==(const CursorImage&) const = default;
};

// One cursor in several sizes and depths to choose from, in the order of the file.
struct StaticCursor {
    std::vector<CursorImage> images; // never empty

    // The one with the most pixels, among those the one with the most bits, among those the first.
    const CursorImage& best() const;

    bool operator==(const StaticCursor&) const = default;
};

// Frames, and the steps in which they are shown, over and over.
struct AnimatedCursor {
    // The unit of all durations: 1/60 s.
    static constexpr int jiffiesPerSecond = 60;

    // One frame on show.
    struct Step {
        int frame = 0;   // place in `frames`
        int jiffies = 1; // for how long; at least 1

        bool operator==(const Step&) const = default;
    };

    std::vector<StaticCursor> frames; // never empty
    std::vector<Step> steps;          // never empty
    int defaultJiffies = 1;           // of steps that the file gives no duration of their own

    bool operator==(const AnimatedCursor&) const = default;
};

// What one cursor file holds.
using Cursor = std::variant<StaticCursor, AnimatedCursor>;

}
