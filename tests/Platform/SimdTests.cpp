#include "SkinKit/Platform/Simd.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

using namespace SkinKit;

TEST(Simd, EveryFormExpandsPixelsLikeThePlainLoopAndTouchesNothingElse)
{
    std::mt19937 random(5);
    for (std::size_t count = 0; count <= 70; ++count) {
        // Exactly as large as they must be, so that a sanitizer sees a byte too many.
        const auto source = std::make_unique<std::uint8_t[]>(3 * count);
        for (std::size_t i = 0; i < 3 * count; ++i)
            source[i] = static_cast<std::uint8_t>(random());
        for (const auto form : Simd::expandBGRForms()) {
            const auto target = std::make_unique<std::uint32_t[]>(count);
            form(source.get(), target.get(), count);
            for (std::size_t i = 0; i < count; ++i) {
                const auto* const pixel = source.get() + 3 * i;
                ASSERT_EQ(target[i], 0xFF000000U | static_cast<std::uint32_t>(pixel[0]) << 16 |
                                         static_cast<std::uint32_t>(pixel[1]) << 8 | pixel[2])
                    << "pixel " << i << " of " << count;
            }
        }
    }
}
