#include "SkinKit/Graphics/Simd.h"

#include "SkinKit/Graphics/Pixel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <memory>
#include <random>
#include <vector>

using namespace SkinKit;

namespace {

// As the format defines it.
unsigned channelOf(std::uint32_t pixel, std::uint32_t mask)
{
    if (mask == 0)
        return 0;
    const std::uint64_t value = (pixel & mask) >> std::countr_zero(mask);
    const std::uint64_t largest = (std::uint64_t{1} << std::popcount(mask)) - 1;
    return static_cast<unsigned>(std::min<std::uint64_t>(255, value * 255 / largest));
}

}

TEST(Simd, EveryFormExpandsBytesByTheirOrderAndTouchesNothingElse)
{
    constexpr auto none = Simd::ByteOrder::none;
    const std::pair<int, Simd::ByteOrder> rows[] = {
        {3, {2, 1, 0}      },
        {4, {2, 1, 0}      },
        {4, {0, 3, 3}      },
        {4, {none, 1, none}},
    };
    std::mt19937 random(5);
    for (const auto& [pixelBytes, order] : rows)
        for (std::size_t count = 0; count <= 70; ++count) {
            // Exactly as large as they must be, so that a sanitizer sees a byte too many.
            const std::size_t byteCount = static_cast<std::size_t>(pixelBytes) * count;
            const auto source = std::make_unique<std::uint8_t[]>(byteCount);
            std::generate_n(source.get(), byteCount,
                            [&] { return static_cast<std::uint8_t>(random()); });
            for (const auto form : Simd::expandBytesForms()) {
                const auto target = std::make_unique<std::uint32_t[]>(count);
                form(source.get(), target.get(), count, pixelBytes, order);
                for (std::size_t i = 0; i < count; ++i) {
                    const auto* const pixel =
                        source.get() + static_cast<std::size_t>(pixelBytes) * i;
                    const auto channel = [&](std::uint8_t place) {
                        return place == none ? 0U : pixel[place];
                    };
                    ASSERT_EQ(target[i], packPixel(channel(order.red), channel(order.green),
                                                   channel(order.blue)))
                        << "pixel " << i << " of " << count;
                }
            }
        }
}

TEST(Simd, EveryFormScalesFieldsOfEveryWidthExactly)
{
    for (std::uint64_t bits = 0; bits <= 32; ++bits) {
        const std::uint64_t largest = (std::uint64_t{1} << bits) - 1;
        const auto mask = static_cast<std::uint32_t>(largest);
        const Simd::BitFields fields{Simd::BitField(mask), Simd::BitField(mask & 0xFFFF),
                                     Simd::BitField(mask & 0xFF0F0)};
        // The least value of each result, and the one below it.
        std::vector<std::uint32_t> pixels{mask};
        for (std::uint64_t result = 1; result <= 255; ++result) {
            const std::uint64_t least = (result * largest + 254) / 255;
            pixels.push_back(static_cast<std::uint32_t>(least));
            pixels.push_back(static_cast<std::uint32_t>(least) - 1);
        }
        for (const int pixelBytes : {2, 4})
            for (const auto form : Simd::expandFieldsForms()) {
                std::vector<std::uint8_t> source(pixels.size() *
                                                 static_cast<std::size_t>(pixelBytes));
                for (std::size_t i = 0; i < source.size(); ++i)
                    source[i] = static_cast<std::uint8_t>(
                        pixels[i / static_cast<std::size_t>(pixelBytes)] >>
                        i % static_cast<std::size_t>(pixelBytes) * 8);
                std::vector<std::uint32_t> target(pixels.size());
                form(source.data(), target.data(), target.size(), pixelBytes, fields);
                for (std::size_t i = 0; i < pixels.size(); ++i) {
                    const std::uint32_t pixel = pixelBytes == 2 ? pixels[i] & 0xFFFF : pixels[i];
                    ASSERT_EQ(target[i], packPixel(channelOf(pixel, fields.red.mask),
                                                   channelOf(pixel, fields.green.mask),
                                                   channelOf(pixel, fields.blue.mask)))
                        << std::hex << pixel << " of " << bits << " bits";
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
