#include "SkinKit/Pages/ThumbnailFit.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace SkinKit;

TEST(ThumbnailFit, MapsWindowPixelsOntoWholeDevicePixelsWhereverThereIsRoom)
{
    const std::tuple<SizeF, double, int, SizeF, bool> rows[] = {
        {{512, 512},      2,    3, {412.5, 174}, false},
        {{512, 512},      1,    1, {275, 116},   false},
        {{64, 64},        2,    1, {64, 27},     true },
        {{64, 64},        5,    1, {55, 23.2},   false},
        {{1100, 1100},    1,    4, {1100, 464},  false},
        {{274, 116},      1,    1, {274, 116},   true }, // 115.578 rounds up
        {{1000, 115},     1,    1, {273, 115},   true },
        {{-5, 300},       1,    1, {1, 1},       true },
        {{NAN, HUGE_VAL}, 1,    1, {1, 1},       true },
        {{550, 550},      0,    2, {550, 232},   false}, // as a scale of 1
        {{550, 550},      NAN,  2, {550, 232},   false},
        {{550, 550},      0.25, 1, {550, 232},   true },
    };
    for (const auto& [maximum, scale, renderScale, size, smooth] : rows)
        EXPECT_EQ(
            ThumbnailFit::fit(maximum,
                              {
                                  0, 0
        },
                              scale, {275, 116}),
            (ThumbnailFit::Result{renderScale, size, {0, 0, size.width, size.height}, smooth}))
            << maximum.width << "x" << maximum.height << " at " << scale;
}

TEST(ThumbnailFit, CentresTheImageInTheMinimumSize)
{
    const std::tuple<SizeF, SizeF, RectF> rows[] = {
        {{512, 512},      {512, 512},   {49.75, 169, 412.5, 174}},
        {{100, 175},      {412.5, 175}, {0, 0.5, 412.5, 174}    },
        {{HUGE_VAL, NAN}, {412.5, 174}, {0, 0, 412.5, 174}      },
    };
    for (const auto& [minimum, context, image] : rows) {
        const auto result = ThumbnailFit::fit({512, 512}, minimum, 2, {275, 116});
        EXPECT_EQ(result.contextSize, context) << minimum.width;
        EXPECT_EQ(result.imageRect, image) << minimum.width;
    }
}
