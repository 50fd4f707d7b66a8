#include "SkinKit/Graphics/Pixel.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace SkinKit;

namespace {

unsigned nearest(double value)
{
    return static_cast<unsigned>(std::floor(value + 0.5));
}

}

TEST(Pixel, RoundsEveryProductToTheNearest)
{
    for (unsigned alpha = 0; alpha <= 255; ++alpha)
        for (unsigned channel = 0; channel <= 255; ++channel) {
            const Pixel straight = packPixel(channel, 255 - channel, 7, alpha);
            EXPECT_EQ(premultiply(straight), packPixel(nearest(channel * alpha / 255.0),
                                                       nearest((255 - channel) * alpha / 255.0),
                                                       nearest(7 * alpha / 255.0), alpha));
            if (channel > alpha)
                continue;
            const Pixel premultiplied = packPixel(channel, alpha - channel, alpha, alpha);
            const auto divided = [alpha](unsigned value) {
                return alpha == 0 ? 0 : nearest(value * 255.0 / alpha);
            };
            EXPECT_EQ(unpremultiply(premultiplied),
                      packPixel(divided(channel), divided(alpha - channel), divided(alpha), alpha));
            EXPECT_EQ(premultiply(unpremultiply(premultiplied)), premultiplied);
        }
}

TEST(Pixel, BlendsSourceOverDestination)
{
    for (unsigned alpha = 0; alpha <= 255; ++alpha)
        for (unsigned under = 0; under <= 255; ++under) {
            const unsigned ink = alpha / 3;
            const double rest = (255 - alpha) / 255.0;
            EXPECT_EQ(blend(packPixel(ink, 0, alpha, alpha), packPixel(under, 255, 0, under)),
                      packPixel(ink + nearest(under * rest), nearest(255 * rest), alpha,
                                alpha + nearest(under * rest)))
                << alpha << " over " << under;
        }
}
