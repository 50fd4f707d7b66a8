#include "examples/samples/Shape.h"

namespace samples {
namespace {

// A step along a pixel's side, and the pixels that then lie ahead on either hand, as seen from the
// corner between them.
struct Heading {
    Point step;
    Point left;
    Point right;
};

// Clockwise: a turn to the right is the next one.
constexpr Heading headings[] = {
    {{1, 0},  {0, -1},  {0, 0}  },
    {{0, 1},  {0, 0},   {-1, 0} },
    {{-1, 0}, {-1, 0},  {-1, -1}},
    {{0, -1}, {-1, -1}, {0, -1} },
};

constexpr Point sum(Point a, Point b)
{
    return {a.x + b.x, a.y + b.y};
}

}

Shape::Shape(Size size, std::function<bool(Point)> holdsPixel)
    : size_(size), holdsPixel_(std::move(holdsPixel))
{
}

bool Shape::holds(Point pixel) const
{
    return contains(Rect{0, 0, size_.width, size_.height}, pixel) && holdsPixel_(pixel);
}

bool Shape::holdsAround(Point pixel) const
{
    return holds(pixel) && holds({pixel.x - 1, pixel.y}) && holds({pixel.x + 1, pixel.y}) &&
           holds({pixel.x, pixel.y - 1}) && holds({pixel.x, pixel.y + 1});
}

std::vector<Point> Shape::outline() const
{
    Point start{0, 0};
    while (!holds(start))
        start = start.x + 1 < size_.width ? Point{start.x + 1, start.y} : Point{0, start.y + 1};

    // Along the border with the shape on the right hand, from the first pixel's upper left corner.
    std::vector<Point> corners;
    Point at = start;
    std::size_t heading = 0;
    std::size_t last = std::size(headings);
    do {
        if (heading != last)
            corners.push_back(at);
        last = heading;
        at = sum(at, headings[heading].step);
        if (holds(sum(at, headings[heading].left)))
            heading = (heading + 3) % 4;
        else if (!holds(sum(at, headings[heading].right)))
            heading = (heading + 1) % 4;
    } while (at != start || heading != 0);
    return corners;
}

std::string regionSection(std::string_view name, const Shape& shape)
{
    const auto corners = shape.outline();
    std::string text("[");
    text.append(name).append("]\r\nNumPoints=").append(std::to_string(corners.size()));
    text.append("\r\nPointList=");
    for (const Point corner : corners)
        text.append(std::to_string(corner.x))
            .append(",")
            .append(std::to_string(corner.y))
            .append(" ");
    return text.append("\r\n\r\n");
}

}
