#include "SkinKit/Formats/CurDecoder.h"

#include "SkinKit/Graphics/BMPDecoder.h"
#include "tests/differential/RandomBMP.h"
#include "tests/support/CursorWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

using namespace SkinKit;
using namespace differential;
using support::BMPFile;

namespace {

constexpr std::size_t fileHeaderBytes = 14;

// The bitmap as it lies in a cursor file: its height counts the mask's rows too.
ByteBuffer picture(const BMPFile& bmp, support::ByteView mask)
{
    BMPFile doubled = bmp;
    doubled.height *= 2;
    const auto file = doubled.bytes();
    ByteBuffer bytes(file.begin() + fileHeaderBytes, file.end());
    support::append(bytes, mask);
    return bytes;
}

// Rows as the file has them, padded to 4 bytes, and from which end they count.
struct Plane {
    ByteView bytes;
    std::size_t bitsAPixel;
    int width;
    int height; // negative: top row first

    // The bits of a pixel that begin at bit `from` of it, most significant first; 0 beyond the end.
    unsigned bits(int x, int y, std::size_t from, std::size_t count) const
    {
        const auto row = static_cast<std::size_t>(height < 0 ? y : height - 1 - y);
        const auto stride = (static_cast<std::size_t>(width) * bitsAPixel + 31) / 32 * 32;
        const auto first = row * stride + static_cast<std::size_t>(x) * bitsAPixel + from;
        unsigned value = 0;
        for (auto bit = first; bit < first + count; ++bit)
            value =
                value << 1 | (bit / 8 < bytes.size() ? bytes[bit / 8] >> (7 - bit % 8) & 1U : 0U);
        return value;
    }
};

// Whether every pixel has a byte of alpha: the last of four, in no colour's mask.
bool hasAlphaByte(const BMPFile& bmp)
{
    return bmp.bitCount == 32 &&
           std::ranges::all_of(bmp.masks, [](std::uint32_t mask) { return mask >> 24 == 0; });
}

// What the cursor shows: the bitmap decoder's colours, and of alpha or mask the one that counts.
Image expected(const BMPFile& bmp, support::ByteView mask)
{
    BMPFile file = bmp;
    file.pixelOffset.reset(); // cursors have none
    const Image colors = BMPDecoder::decode(file.bytes()).value();
    const Plane pixels{bmp.pixels, static_cast<std::size_t>(bmp.bitCount), bmp.width, bmp.height};
    const Plane hidden{mask, 1, bmp.width, bmp.height};
    const auto alpha = [&](int x, int y) { return pixels.bits(x, y, 24, 8); };

    bool usesAlpha = false;
    if (hasAlphaByte(bmp))
        for (int y = 0; y < colors.height(); ++y)
            for (int x = 0; x < colors.width(); ++x)
                usesAlpha = usesAlpha || alpha(x, y) != 0;

    auto result = PixelBuffer::uninitialized(colors.size());
    for (int y = 0; y < colors.height(); ++y)
        for (int x = 0; x < colors.width(); ++x) {
            const Pixel color = colors.pixel({x, y});
            auto& pixel = result.row(y)[static_cast<std::size_t>(x)];
            if (usesAlpha)
                pixel = premultiply(
                    packPixel(redOf(color), greenOf(color), blueOf(color), alpha(x, y)));
            else if (hidden.bits(x, y, 0, 1) == 0)
                pixel = color;
            else
                pixel = color == packPixel(255, 255, 255) ? packPixel(0, 0, 0) : transparentPixel;
        }
    return {std::move(result), Image::Alpha::any};
}

}

TEST(DifferentialCursor, ShowsTheBitmapDecodersColorsBehindItsMaskOrWithItsAlpha)
{
    Random random(4);
    for (int round = 0; round < 6000; ++round) {
        BMPFile bmp = randomBMP(random, BMPKind::ofCursor);
        const bool hasNoAlpha = bmp.bitCount == 32 && random.oneIn(2);
        for (std::size_t i = 3; hasNoAlpha && i < bmp.pixels.size(); i += 4)
            bmp.pixels[i] = 0;
        const auto rows = static_cast<std::size_t>(std::abs(bmp.height));
        auto mask = random.bytes((static_cast<std::size_t>(bmp.width) + 31) / 32 * 4 * rows);
        if (random.oneIn(4))
            mask.resize(random.below(mask.size()));

        const auto cursor = CurDecoder::decode(support::curFile(picture(bmp, mask)));
        ASSERT_TRUE(cursor) << round;
        ASSERT_EQ(cursor->images.front().image, expected(bmp, mask)) << round;
        EXPECT_EQ(cursor->images.front().bitCount, bmp.bitCount);
    }
}
