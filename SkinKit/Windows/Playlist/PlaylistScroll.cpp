#include "SkinKit/Windows/Playlist/PlaylistScroll.h"

#include "SkinKit/Graphics/Geometry.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace SkinKit::PlaylistScroll {
namespace {

constexpr double lastPosition = 100;

double nearest(double value)
{
    return std::floor(value + 0.5);
}

}

int overflow(int count, int visibleRows)
{
    constexpr std::int64_t most = std::numeric_limits<int>::max();
    const std::int64_t rows = std::int64_t{count} - visibleRows;
    return static_cast<int>(std::clamp<std::int64_t>(rows, 0, most));
}

int offset(double position, int count, int visibleRows)
{
    const int most = overflow(count, visibleRows);
    return static_cast<int>(nearest(clamped(position, lastPosition) / lastPosition * most));
}

Rows visibleRange(double position, int count, int visibleRows)
{
    const int first = offset(position, count, visibleRows);
    const std::int64_t end = std::min<std::int64_t>(count, std::int64_t{first} + visibleRows);
    return {first, static_cast<int>(std::max<std::int64_t>(first, end))};
}

double handleValue(double position, int count, int visibleRows)
{
    const int most = overflow(count, visibleRows);
    if (most == 0)
        return 0;
    const double row = nearest(clamped(position, lastPosition) * most / lastPosition);
    return nearest(row / most * 100) / 100;
}

double positionAfterWheel(double delta, double position, int count)
{
    if (count < 1)
        return 0;
    const double listHeight = static_cast<double>(count) * rowHeight;
    return clamped(position + delta / listHeight * lastPosition, lastPosition);
}

double positionAfterScrolling(int rows, double position, int count, int visibleRows)
{
    const int most = overflow(count, visibleRows);
    if (most < 1)
        return 0;
    const double first = static_cast<double>(offset(position, count, visibleRows)) + rows;
    return std::clamp(first / most, 0.0, 1.0) * lastPosition;
}

}
