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

TEST(Simd, EveryFormCountsDifferencesLikeThePlainLoop)
{
    std::mt19937 random(15);
    for (std::size_t count = 0; count <= 70; ++count) {
        const auto ours = std::make_unique<std::uint32_t[]>(count);
        const auto reference = std::make_unique<std::uint32_t[]>(count);
        for (std::size_t i = 0; i < count; ++i) {
            ours[i] = static_cast<std::uint32_t>(random());
            reference[i] = random() % 2 ? ours[i] : static_cast<std::uint32_t>(random());
            if (random() % 5 == 0)
                reference[i] = ours[i] ^ 0x010203;
            if (random() % 5 == 0)
                ours[i] &= 0xFFFFFF;
            if (random() % 5 == 0)
                reference[i] &= 0xFFFFFF;
        }
        for (const int tolerance : {0, 1, 2, 3, 100, 254, 255})
            for (const auto form : Simd::countDifferencesForms())
                EXPECT_EQ(
                    form(ours.get(), reference.get(), count, static_cast<std::uint8_t>(tolerance)),
                    Simd::countDifferencesForms().front()(ours.get(), reference.get(), count,
                                                          static_cast<std::uint8_t>(tolerance)))
                    << count << " pixels, tolerance " << tolerance;
    }
}
