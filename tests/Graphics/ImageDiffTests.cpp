#include "SkinKit/Graphics/ImageDiff.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <vector>

using namespace SkinKit;
using support::picture;
using support::rowsOf;

namespace {

using Rows = std::vector<std::string>;

const support::Legend legend{
    {'.', transparentPixel},
    {'a', packPixel(100, 100, 100)},
    {'b', packPixel(100, 103, 100)}, // three off
    {'c', packPixel(0, 100, 200)}, // a hundred off
    {'h', packPixel(100, 100, 100, 128)}, // the same colour as stored, half as opaque
    {'M', packPixel(255, 0, 255)},
};

// The counting rules, one pixel at a time.
ImageDiff::Result countByHand(const Image& ours, const Image& reference, int tolerance,
                              const std::vector<Rect>& ignoring)
{
    ImageDiff::Result result;
    for (int y = 0; y < ours.height(); ++y)
        for (int x = 0; x < ours.width(); ++x) {
            const bool covered = x < reference.width() && y < reference.height();
            const Pixel a = ours.pixel({x, y});
            const Pixel b = covered ? reference.pixel({x, y}) : transparentPixel;
            if (alphaOf(a) == 0 || alphaOf(b) == 0) {
                ++result.skippedTransparent;
                continue;
            }
            ++result.compared;
            const auto distance = [](unsigned left, unsigned right) {
                return std::abs(static_cast<int>(left) - static_cast<int>(right));
            };
            const int largest =
                std::max({distance(redOf(a), redOf(b)), distance(greenOf(a), greenOf(b)),
                          distance(blueOf(a), blueOf(b))});
            const bool ignored = std::ranges::any_of(
                ignoring, [x, y](const Rect& rect) { return contains(rect, Point{x, y}); });
            result.differing += largest > 0;
            result.beyondTolerance += largest > tolerance;
            result.differingOutsideIgnored += largest > 0 && !ignored;
            result.beyondToleranceOutsideIgnored += largest > tolerance && !ignored;
        }
    return result;
}

Image randomImage(std::mt19937& random, Size size)
{
    auto pixels = PixelBuffer::uninitialized(size);
    for (Pixel& pixel : std::span(pixels.data(), pixels.count())) {
        // Few values, so that equal, near and far pixels all occur.
        const auto channel = [&random] { return static_cast<unsigned>(random() % 3 * 2); };
        const unsigned alpha = random() % 4 == 0 ? 0 : random() % 4 == 0 ? 9 : 255;
        pixel = alpha == 0 ? transparentPixel : packPixel(channel(), channel(), channel(), alpha);
    }
    return {std::move(pixels), Image::Alpha::any};
}

}

TEST(ImageDiff, CountsAsTheRulesSayWhateverTheSizesAndIgnoredRectangles)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        const auto side = [&random] { return 1 + static_cast<int>(random() % 40); };
        const Image ours = randomImage(random, {side(), side()});
        const Image reference = randomImage(random, {side(), side()});
        std::vector<Rect> ignoring;
        for (unsigned i = 0; i < random() % 5; ++i)
            ignoring.push_back({side() - 10, side() - 10, side() - 3, side() - 3});
        for (const int tolerance : {0, 1, 2, 3, 255})
            ASSERT_EQ(
                ImageDiff::compare(ours, reference, static_cast<std::uint8_t>(tolerance), ignoring),
                countByHand(ours, reference, tolerance, ignoring))
                << "round " << round << ", tolerance " << tolerance;
    }
}

TEST(ImageDiff, ComparesStoredColoursAndNeverAlpha)
{
    EXPECT_EQ(ImageDiff::compare(picture({"aha."}, legend), picture({"hb.a"}, legend), 3),
              (ImageDiff::Result{.compared = 2,
                                 .differing = 1, // three off, which is within the tolerance
                                 .skippedTransparent = 2,
                                 .differingOutsideIgnored = 1}));
}

TEST(ImageDiff, TakesRectanglesOfAnySize)
{
    const Image ours = picture({"aa"}, legend);
    const Image reference = picture({"cc"}, legend);
    const Rect rects[] = {
        {INT_MIN, 0,       INT_MAX, 1      }, // ends left of the picture
        {0,       0,       0,       5      },
        {1,       INT_MIN, INT_MAX, INT_MAX}, // ends above it
        {1,       0,       INT_MAX, INT_MAX}
    };
    EXPECT_EQ(ImageDiff::compare(ours, reference, 0, rects).differingOutsideIgnored, 1);
}

TEST(ImageDiff, MarksEveryDifferenceAndNothingElse)
{
    const Image marked = ImageDiff::diffImage(picture({"aaa", "ha.", "aaa"}, legend),
                                              picture({"ab.c", "aca."}, legend));
    EXPECT_EQ(rowsOf(marked, legend), (Rows{"aMa", "hM.", "aaa"}));
    EXPECT_EQ(ImageDiff::diffImage(picture({"."}, legend), picture({"M"}, legend)).pixel({0, 0}),
              transparentPixel);
}
