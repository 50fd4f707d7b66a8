#include "SkinKit/Pages/ThumbnailFit.h"

#include <gtest/gtest.h>

#include <limits>

using namespace SkinKit;
using ThumbnailFit::Result;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr Size window{275, 116};

// The result for an image that fills the whole context.
Result filling(int renderScale, SizeF size, bool smooth)
{
    return {
        renderScale, size, {0, 0, size.width, size.height},
          smooth
    };
}

}

TEST(ThumbnailFit, MapsWindowPixelsOntoWholeDevicePixelsWhereverThereIsRoom)
{
    const std::tuple<SizeF, double, Result> rows[] = {
        {{512, 512},             2,          filling(3, {412.5, 174}, false)},
        {{512, 512},             1,          filling(1, {275, 116},   false)},
        {{64, 64},               1,          filling(1, {64, 27},     true) },
        {{64, 64},               2,          filling(1, {64, 27},     true) },
        {{64, 64},               5,          filling(1, {55, 23.2},   false)},
        {{1100, 1100},           1,          filling(4, {1100, 464},  false)},
        {{275, 116},             1,          filling(1, {275, 116},   false)},
        {{274, 116},             1,          filling(1, {274, 116},   true) }, // 115.578 rounds up
        {{1000, 115},            1,          filling(1, {273, 115},   true) },
        {{0, 0},                 1,          filling(1, {1, 1},       true) },
        {{-5, 300},              1,          filling(1, {1, 1},       true) },
        {{notANumber, infinity}, 1,          filling(1, {1, 1},       true) },
        {{550, 550},             0,          filling(2, {550, 232},   false)}, // as a scale of 1
        {{550, 550},             -2,         filling(2, {550, 232},   false)},
        {{550, 550},             notANumber, filling(2, {550, 232},   false)},
        {{550, 550},             infinity,   filling(2, {550, 232},   false)},
        {{550, 550},             0.25,       filling(1, {550, 232},   true) },
    };
    for (const auto& [maximum, scale, expected] : rows)
        EXPECT_EQ(ThumbnailFit::fit(maximum, {0, 0}, scale, window), expected)
            << maximum.width << "x" << maximum.height << " at " << scale;
}

TEST(ThumbnailFit, CentresTheImageInTheLeastSizeAskedFor)
{
    const std::tuple<SizeF, SizeF, RectF> rows[] = {
        {{512, 512},       {512, 512},   {49.75, 169, 412.5, 174}},
        {{100, 175},       {412.5, 175}, {0, 0.5, 412.5, 174}    },
        {{-5, notANumber}, {412.5, 174}, {0, 0, 412.5, 174}      },
        {{infinity, 10},   {412.5, 174}, {0, 0, 412.5, 174}      },
    };
    for (const auto& [minimum, context, image] : rows) {
        const auto result = ThumbnailFit::fit({512, 512}, minimum, 2, window);
        EXPECT_EQ(result.contextSize, context) << minimum.width;
        EXPECT_EQ(result.imageRect, image) << minimum.width;
    }
}
