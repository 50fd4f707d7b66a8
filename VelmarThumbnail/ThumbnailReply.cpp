#include "VelmarThumbnail/ThumbnailReply.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <utility>

namespace VelmarThumbnail {

double devicePixels(double points, double scale)
{
    return std::isfinite(scale) && scale > 0 ? points * scale : points;
}

std::optional<SkinKit::Image> ThumbnailReply::image(double scale) const
{
    const auto side = [scale](double points) {
        const double pixels = std::round(devicePixels(points, scale));
        return static_cast<int>(std::clamp<double>(pixels, 1, INT_MAX));
    };
    SkinKit::Canvas canvas({side(contextSize.width), side(contextSize.height)});
    if (!draw({canvas, scale}))
        return std::nullopt;
    return std::move(canvas).image();
}

}
