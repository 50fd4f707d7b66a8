#include "SkinKit/Formats/RegionParser.h"
#include "fuzz/Fuzzing.h"

#include <algorithm>
#include <string>

namespace {

using namespace SkinKit;

// Written as files have it. A polygon that lacks points was the last, and its count was another.
std::string textOf(const SkinRegion& region)
{
    std::string text;
    for (const auto& [name, polygons] : region.sections) {
        // Neither may be empty: a count that makes no polygon, a point that is none.
        std::string counts = "0";
        std::string points = "- -";
        for (const auto& polygon : polygons) {
            counts.append(",").append(std::to_string(std::max<std::size_t>(3, polygon.size())));
            for (const auto& [x, y] : polygon)
                points.append(" ").append(std::to_string(x)).append(",").append(std::to_string(y));
        }
        text.append("[").append(name.empty() ? " " : name).append("]\nNumPoints=").append(counts);
        text.append("\nPointList=").append(points).append("\n");
    }
    return text;
}

void requireSound(const SkinRegion::Polygons& polygons)
{
    const auto once = SkinRegion::maskImage(polygons, {64, 16}, 1);
    fuzzing::require(once && once->size() == Size{64, 16} &&
                     SkinRegion::maskImage(polygons, {64, 16}, 1) == once);
    for (int y = 0; y < once->height(); ++y)
        for (const Pixel pixel : once->row(y))
            fuzzing::require(pixel == packPixel(255, 255, 255) || pixel == Pixel{});
    const auto thrice = SkinRegion::maskImage(polygons, {64, 16}, 3);
    fuzzing::require(thrice && thrice->size() == Size{192, 48});
}

}

// A region file. What was read of it is written and read again, and its shapes are drawn.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const SkinRegion region = RegionParser::parse(asText({data, size}));
    fuzzing::require(RegionParser::parse(textOf(region)) == region);
    constexpr int maxDrawn = 4;
    int drawn = 0;
    for (const auto& [name, polygons] : region.sections) {
        for (const auto& polygon : polygons)
            fuzzing::require(!polygon.empty());
        if (drawn++ < maxDrawn)
            requireSound(polygons);
    }
    return 0;
}
