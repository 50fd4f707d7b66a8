#include "SkinKit/Pages/ThumbnailFit.h"

#include "SkinKit/Base/Check.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace SkinKit::ThumbnailFit {
namespace {

bool isPositive(double value)
{
    return std::isfinite(value) && value > 0;
}

double atLeastOne(double length)
{
    return std::isfinite(length) ? std::max(length, 1.0) : 1;
}

double orZero(double length)
{
    return isPositive(length) ? length : 0;
}

}

Result fit(SizeF maximumSize, SizeF minimumSize, double scale, Size window)
{
    check(!window.isEmpty(), "a window has a size");
    const double factor = std::min(atLeastOne(maximumSize.width) / window.width,
                                   atLeastOne(maximumSize.height) / window.height);
    const double displayScale = isPositive(scale) ? scale : 1;
    const double whole = std::floor(displayScale * factor);
    check(std::isfinite(whole), "a thumbnail's scale must be finite");

    Result result;
    result.smooth = whole < 1;
    SizeF image;
    if (result.smooth)
        image = {std::max(1.0, std::round(window.width * factor)),
                 std::max(1.0, std::round(window.height * factor))};
    else
        image = {window.width * whole / displayScale, window.height * whole / displayScale};

    result.contextSize = {std::max(image.width, orZero(minimumSize.width)),
                          std::max(image.height, orZero(minimumSize.height))};
    result.imageRect = {(result.contextSize.width - image.width) / 2,
                        (result.contextSize.height - image.height) / 2, image.width, image.height};
    result.renderScale = static_cast<int>(std::clamp(whole, 1.0, static_cast<double>(INT_MAX)));
    return result;
}

}
