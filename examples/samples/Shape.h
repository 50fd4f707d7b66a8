#pragma once

#include "examples/samples/Painter.h"

#include <functional>
#include <string>
#include <vector>

namespace samples {

// The pixels of a window that are to be seen: one piece without holes.
class Shape {
public:
    Shape(Size size, std::function<bool(Point)> holdsPixel);

    bool holds(Point pixel) const;
    // Whether the pixel and all that touch it with a side belong to the shape.
    bool holdsAround(Point pixel) const;

    // The corners of its border, clockwise, in a region file's coordinates: a pixel reaches from
    // its own to the next.
    std::vector<Point> outline() const;

private:
    Size size_;
    std::function<bool(Point)> holdsPixel_;
};

// A section of a region file with one polygon.
std::string regionSection(std::string_view name, const Shape& shape);

}
