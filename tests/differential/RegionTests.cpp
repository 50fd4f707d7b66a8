#include "SkinKit/Formats/RegionParser.h"
#include "SkinKit/Formats/SkinRegion.h"

#include "tests/differential/Random.h"
#include "tests/support/Winding.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

using namespace SkinKit;
using differential::Random;

namespace {

using Polygon = SkinRegion::Polygon;

constexpr Size window{23, 17};

// Outlines as skins have them and as they should not: rectangles, stairs, points said twice, lines
// that run back over themselves, stars that cross themselves, corners far outside the window.
Polygon outline(Random& random)
{
    const int reach = random.oneOf({0, 5, 5, 1000, 1'000'000'000});
    const auto x = [&] { return random.between(-reach, window.width + reach); };
    const auto y = [&] { return random.between(-reach, window.height + reach); };
    Polygon polygon;
    switch (random.below(3)) {
    case 0: {
        const int left = x(), top = y(), right = x(), bottom = y();
        polygon = {
            {left,  top   },
            {right, top   },
            {right, bottom},
            {left,  bottom}
        };
        break;
    }
    case 1: // every other edge upright, the rest level
        for (auto steps = random.below(6) + 2; steps > 0; --steps) {
            const auto upTo = y();
            if (!polygon.empty())
                polygon.push_back({polygon.back().x, upTo});
            polygon.push_back({x(), upTo});
        }
        break;
    default:
        for (auto points = random.below(9) + 3; points > 0; --points)
            polygon.push_back({x(), y()});
    }
    while (polygon.size() < 3 || random.oneIn(4))
        polygon.push_back(polygon[random.below(polygon.size())]);
    return polygon;
}

std::string regionFile(const SkinRegion::Polygons& polygons)
{
    std::ostringstream counts;
    std::ostringstream points;
    for (const auto& polygon : polygons) {
        counts << polygon.size() << ',';
        for (const auto& [x, y] : polygon)
            points << x << ',' << y << ' ';
    }
    return "[Normal]\nNumPoints=" + counts.str() + "\nPointList=" + points.str() + "\n";
}

// The polygons at a scale, worked out anew.
Path scaled(const SkinRegion::Polygons& polygons, int scale)
{
    Path path{polygons};
    for (auto& polygon : path.polygons)
        for (auto& [x, y] : polygon)
            x *= scale, y *= scale;
    return path;
}

Image expected(const Path& path, Size size)
{
    auto pixels = PixelBuffer::transparent(size);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            if (support::windingNumber(path, x, y) != 0)
                pixels.row(y)[static_cast<std::size_t>(x)] = packPixel(255, 255, 255);
    return {std::move(pixels), Image::Alpha::any};
}

}

TEST(DifferentialRegion, MasksThePixelsWhoseCentresTheFilesPolygonsRunRound)
{
    Random random(7);
    for (int round = 0; round < 4000; ++round) {
        SkinRegion::Polygons polygons;
        for (auto count = random.below(4) + 1; count > 0; --count)
            polygons.push_back(outline(random));
        const auto region = RegionParser::parse(regionFile(polygons));
        ASSERT_TRUE(region.normal());
        ASSERT_EQ(*region.normal(), polygons) << round;

        const int scale = random.between(1, 3);
        const Size size{window.width * scale, window.height * scale};
        ASSERT_EQ(SkinRegion::maskImage(*region.normal(), window, scale),
                  expected(scaled(polygons, scale), size))
            << round;
    }
}
