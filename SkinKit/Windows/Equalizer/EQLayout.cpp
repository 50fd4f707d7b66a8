#include "SkinKit/Windows/Equalizer/EQLayout.h"

#include <algorithm>
#include <cmath>

namespace SkinKit::EQLayout {

int bandIndexAtX(double x)
{
    const double column = std::floor((x - bandStrip.x) / bandSpacing);
    return std::isfinite(column) ? static_cast<int>(std::clamp(column, 0.0, bandCount - 1.0)) : 0;
}

double valueForGain(float gain)
{
    return clampedValue((static_cast<double>(gain) + maxGain) / (2 * maxGain) * maxValue);
}

float gainForValue(double value)
{
    return static_cast<float>(clampedValue(value) / maxValue * (2 * maxGain) - maxGain);
}

double snapped(double value)
{
    return std::abs(value - midValue) < snapDistance ? midValue : value;
}

int frameForValue(double value)
{
    return static_cast<int>(std::lround(clampedValue(value) / maxValue * (frameCount - 1)));
}

int thumbYForValue(double value)
{
    return static_cast<int>(std::floor((1 - clampedValue(value) / maxValue) * thumbTravel));
}

double valueForPointerY(double y)
{
    const double way = (y - thumbSize.height / 2.0) / thumbTravel;
    if (way <= 0)
        return maxValue;
    return (1 - std::fmin(way, 1)) * maxValue;
}

}
