#include "VelmarThumbnail/ThumbnailReply.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <utility>

namespace VelmarThumbnail {

double DrawingContext::pixels(double points) const
{
    return std::isfinite(scale) && scale > 0 ? points * scale : points;
}

std::optional<SkinKit::Image> ThumbnailReply::image(double scale) const
{
    SkinKit::Canvas none({1, 1});
    const auto side = [&](double points) {
        const double pixels = std::round(DrawingContext{none, scale}.pixels(points));
        return static_cast<int>(std::clamp<double>(pixels, 1, INT_MAX));
    };
    SkinKit::Canvas canvas({side(contextSize.width), side(contextSize.height)});
    if (!draw({canvas, scale}))
        return std::nullopt;
    return std::move(canvas).image();
}

}
