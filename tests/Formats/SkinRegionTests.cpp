#include "SkinKit/Formats/SkinRegion.h"
#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

#include <climits>

using namespace SkinKit;
using Polygons = SkinRegion::Polygons;

namespace {

using Rows = std::vector<std::string>;

const support::Legend legend{
    {'.', transparentPixel},
    {'#', packPixel(255, 255, 255)}
};

std::optional<Rows> mask(const Polygons& polygons, Size size, int scale)
{
    const auto image = SkinRegion::maskImage(polygons, size, scale);
    return image ? std::optional(support::rowsOf(*image, legend)) : std::nullopt;
}

}

TEST(SkinRegion, MasksAWindowAtDeviceScale)
{
    const Polygons rectangle{
        {{1, 1}, {3, 1}, {3, 2}, {1, 2}}
    };
    EXPECT_EQ(mask(rectangle, {4, 3}, 1), (Rows{"....", ".##.", "...."}));
    EXPECT_EQ(mask(rectangle, {4, 2}, 2), (Rows{"........", "........", "..####..", "..####.."}));
    // A slope is followed in device pixels, not in window pixels.
    const Polygons triangle{
        {{0, 0}, {2, 0}, {2, 2}}
    };
    EXPECT_EQ(mask(triangle, {2, 2}, 1), (Rows{"##", ".#"}));
    EXPECT_EQ(mask(triangle, {2, 2}, 2), (Rows{"####", ".###", "..##", "...#"}));
}

TEST(SkinRegion, GivesNoMaskOfASizeThatCannotBe)
{
    for (const Size size : {
             Size{0,       5      },
             Size{5,       -1     },
             Size{INT_MAX, INT_MAX}
    })
        EXPECT_FALSE(SkinRegion::maskImage({}, size, 1));
    EXPECT_FALSE(SkinRegion::maskImage({}, {5, 5}, INT_MAX));
    EXPECT_FALSE(SkinRegion::maskImage({}, {5, 5}, 0));
}
