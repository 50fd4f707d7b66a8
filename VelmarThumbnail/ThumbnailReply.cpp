#include "VelmarThumbnail/ThumbnailReply.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <utility>

namespace VelmarThumbnail {

std::optional<SkinKit::Image> ThumbnailReply::image(double scale) const
{
    const auto pixels = [scale](double points) {
        return static_cast<int>(std::clamp<double>(std::round(points * scale), 1, INT_MAX));
    };
    SkinKit::Canvas canvas({pixels(contextSize.width), pixels(contextSize.height)});
    if (!draw({canvas, scale}))
        return std::nullopt;
    return std::move(canvas).image();
}

}
