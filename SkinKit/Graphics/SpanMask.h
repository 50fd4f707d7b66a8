#pragma once

#include "SkinKit/Graphics/Geometry.h"

#include <span>
#include <vector>

namespace SkinKit {

// An area of whole device pixels, held as runs of columns row by row. Never changes once made.
class SpanMask {
public:
    // Columns begin … end - 1.
    struct Span {
        int begin = 0;
        int end = 0;

        bool operator==(const Span&) const = default;
    };

    // The pixels of `bounds` whose centre lies inside `path` by the non-zero winding rule; path and
    // bounds in device pixels. A centre exactly on an edge belongs to the area to the right of or
    // below that edge, so a rectangle x, y, w, h covers exactly w × h pixels.
    static SpanMask fill(const Path& path, const Rect& bounds);

    // The pixels in both.
    SpanMask intersected(const SpanMask& other) const;

    // The runs of row y, left to right, not touching each other; none outside the mask's bounds.
    std::span<const Span> row(int y) const;

private:
    int top_ = 0;
    std::vector<std::size_t> firstSpan_; // of each row, and one past the last row
    std::vector<Span> spans_;
};

}
