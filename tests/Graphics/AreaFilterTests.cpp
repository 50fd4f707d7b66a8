#include "SkinKit/Graphics/AreaFilter.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/Pictures.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <limits>
#include <random>

using namespace SkinKit;
using support::picture;

namespace {

const support::Legend legend{
    {'.', transparentPixel},
    {'#', packPixel(255, 0, 0)},
    {'o', packPixel(0, 0, 255)},
    {'w', packPixel(255, 255, 255)},
    {'k', packPixel(0, 0, 0)},
};

RectF whole(Size size)
{
    return {0, 0, static_cast<double>(size.width), static_cast<double>(size.height)};
}

Image noise(Size size, unsigned seed)
{
    std::mt19937 random(seed);
    auto pixels = PixelBuffer::uninitialized(size);
    for (Pixel& pixel : std::span(pixels.data(), pixels.count()))
        pixel = premultiply(static_cast<Pixel>(random()));
    return {std::move(pixels), Image::Alpha::any};
}

// The mean over a target pixel, in whole numbers: every pixel of both images is a block of a grid
// so fine that the blocks' edges meet its lines.
Pixel exactMean(const Image& image, Size size, Point at)
{
    const auto overlap = [](int target, int targets, int source, int sources) {
        const int begin = std::max(target * sources, source * targets);
        return std::max(0, std::min((target + 1) * sources, (source + 1) * targets) - begin);
    };
    std::array<std::int64_t, 4> sums{};
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const std::int64_t area = std::int64_t{overlap(at.x, size.width, x, image.width())} *
                                      overlap(at.y, size.height, y, image.height());
            for (std::size_t i = 0; i < sums.size(); ++i)
                sums[i] += area * (image.pixel({x, y}) >> (8 * i) & 0xFF);
        }
    const std::int64_t all = std::int64_t{image.width()} * image.height();
    const auto mean = [&](std::size_t i) {
        return static_cast<unsigned>((2 * sums[i] + all) / (2 * all));
    };
    return packPixel(mean(0), mean(1), mean(2), mean(3));
}

}

TEST(AreaFilter, GivesEveryPixelTheExactMeanOfWhatItCovers)
{
    const std::pair<Size, Size> rows[] = {
        {{55, 23}, {51, 21}}, // hardly smaller
        {{55, 23}, {13, 5} },
        {{55, 23}, {1, 1}  },
        {{6, 10},  {4, 4}  }, // many exact halves
        {{7, 3},   {7, 3}  }, // the same size
        {{3, 2},   {8, 5}  }, // larger
    };
    for (const auto& [from, to] : rows) {
        const Image image = noise(from, 1);
        const Image result = AreaFilter::resample(image, to, whole(to));
        ASSERT_EQ(result.size(), to);
        for (int y = 0; y < to.height; ++y)
            for (int x = 0; x < to.width; ++x)
                ASSERT_EQ(result.pixel({x, y}), exactMean(image, to, {x, y}))
                    << from.width << " to " << to.width << " at " << x << ", " << y;
    }
}

TEST(AreaFilter, CoversPixelsInPartWhereTheCellEndsBetweenThem)
{
    const Image image = picture({"##oo"}, legend);
    const Image result = AreaFilter::resample(image, {4, 2}, {0.5, 0.25, 2, 1});
    const Image expected = picture(
        {
            "abc.", "def."
    },
        {
            {'.', transparentPixel},
            {'a', packPixel(96, 0, 0, 96)},   // a half of 3/4
            {'b', packPixel(96, 0, 96, 191)}, // two quarters red, two blue, of 3/4
            {'c', packPixel(0, 0, 96, 96)},
            {'d', packPixel(32, 0, 0, 32)}, // of the quarter below
            {'e', packPixel(32, 0, 32, 64)},
            {'f', packPixel(0, 0, 32, 32)},
        });
    EXPECT_EQ(result, expected);
}

TEST(AreaFilter, LeavesOutWhatFallsOutsideThePicture)
{
    const Image result =
        AreaFilter::resample(picture({"#o", "ow"}, legend), {1, 1}, {-1, -1, 2, 2});
    EXPECT_EQ(result.pixel({0, 0}), packPixel(255, 255, 255));
    EXPECT_EQ(AreaFilter::resample(result, {2, 1}, {5, 0, 2, 1}), picture({".."}, legend));
}
