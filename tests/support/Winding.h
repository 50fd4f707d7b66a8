#pragma once

#include "SkinKit/Graphics/Geometry.h"

#include <cstddef>

namespace support {

// How often the polygons run round the centre of pixel (x, y): the edges that cross its row at or
// to the left of it, counted by direction. In half pixels, where the centre is a whole number, and
// in integers that hold every product.
inline int windingNumber(const SkinKit::Path& path, int x, int y)
{
    __extension__ using Wide = __int128;
    const Wide centreX = 2 * Wide{x} + 1;
    const Wide centreY = 2 * Wide{y} + 1;
    int winding = 0;
    for (const auto& polygon : path.polygons)
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            const auto& from = polygon[i];
            const auto& to = polygon[(i + 1) % polygon.size()];
            const bool isDown = from.y < to.y;
            const auto& top = isDown ? from : to;
            const auto& bottom = isDown ? to : from;
            if (2 * Wide{top.y} > centreY || 2 * Wide{bottom.y} < centreY)
                continue;
            const Wide side = (centreX - 2 * Wide{top.x}) * (Wide{bottom.y} - top.y) -
                              (Wide{bottom.x} - top.x) * (centreY - 2 * Wide{top.y});
            if (side >= 0)
                winding += isDown ? 1 : -1;
        }
    return winding;
}

}
