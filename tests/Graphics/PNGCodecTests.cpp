#include "SkinKit/Graphics/PNGCodec.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/PNGFile.h"

#include <gtest/gtest.h>

#include <png.h>

#include <random>

using namespace SkinKit;
using support::ByteBuffer;
using support::PNGHeader;

namespace {

constexpr PNGCodec::Limits generous{.maxSide = 4096, .maxPixels = 1 << 23};
enum ColorType : std::uint8_t { gray = 0, rgbColor = 2, palette = 3, grayAlpha = 4, rgba = 6 };

// Rows with filters, as random as the pixels in them.
void appendRows(ByteBuffer& target, std::size_t rows, std::size_t bytesPerRow, std::mt19937& random)
{
    for (; rows > 0 && bytesPerRow > 0; --rows) {
        target.push_back(static_cast<std::uint8_t>(random() % 5));
        for (std::size_t i = 0; i < bytesPerRow; ++i)
            target.push_back(static_cast<std::uint8_t>(random() % 3 == 0 ? 0x80 : random()));
    }
}

// A file with random pixels and, where its colour type may have one, a palette of 2^depth colours.
// `extraChunks` come before the pixels.
ByteBuffer randomFile(const PNGHeader& header, const ByteBuffer& extraChunks = {})
{
    struct Pass {
        std::size_t x, y, stepX, stepY;
    };
    const std::vector<Pass> interlaced{
        {0, 0, 8, 8},
        {4, 0, 8, 8},
        {0, 4, 4, 8},
        {2, 0, 4, 4},
        {0, 2, 2, 4},
        {1, 0, 2, 2},
        {0, 1, 1, 2}
    };
    std::mt19937 random(header.colorType * 100U + header.depth);
    ByteBuffer chunks;
    if (header.colorType == palette) {
        ByteBuffer colors;
        for (std::size_t i = 0; i < (std::size_t{3} << header.depth); ++i)
            colors.push_back(static_cast<std::uint8_t>(i * 37));
        chunks = support::pngChunk("PLTE", colors);
    }
    support::append(chunks, extraChunks);
    const std::size_t channels[] = {1, 0, 3, 1, 2, 0, 4};
    ByteBuffer rows;
    for (const auto& [x, y, stepX, stepY] : header.isInterlaced ? interlaced
                                                                : std::vector<Pass>{
                                                                      {0, 0, 1, 1}
    }) {
        const auto width = (header.width - x + stepX - 1) / stepX;
        const auto bits = width * channels[header.colorType] * header.depth;
        appendRows(rows, (header.height - y + stepY - 1) / stepY, (bits + 7) / 8, random);
    }
    support::append(chunks, support::pngChunk("IDAT", support::zlibStream(rows)));
    return support::pngFile(header, chunks);
}

// Straight RGBA words, as the library's simplified reader gives them.
std::vector<Pixel> simplyRead(const ByteBuffer& bytes)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()))
        return {};
    image.format = PNG_FORMAT_RGBA;
    std::vector<Pixel> pixels(std::size_t{image.width} * image.height);
    png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr);
    return pixels;
}

void expectPixels(const std::optional<Image>& image, const std::vector<Pixel>& straight)
{
    ASSERT_TRUE(image);
    ASSERT_EQ(static_cast<std::size_t>(image->width() * image->height()), straight.size());
    bool opaque = true;
    for (std::size_t i = 0; i < straight.size(); ++i) {
        const int at = static_cast<int>(i);
        ASSERT_EQ(image->pixel({at % image->width(), at / image->width()}),
                  premultiply(straight[i]))
            << "pixel " << i;
        opaque = opaque && alphaOf(straight[i]) == 255;
    }
    EXPECT_EQ(image->isOpaque(), opaque);
}

// Premultiplied pixels with rows that repeat, as in an enlarged picture.
Image translucentImage(Size size, unsigned seed)
{
    std::mt19937 random(seed);
    auto pixels = PixelBuffer::uninitialized(size);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x) {
            auto& pixel = pixels.row(y)[static_cast<std::size_t>(x)];
            pixel = y % 3 != 0 ? pixels.row(y - 1)[static_cast<std::size_t>(x)]
                               : premultiply(static_cast<Pixel>(random()));
            if (y % 7 == 0)
                pixel = packPixel(1, 2, 3);
        }
    return {std::move(pixels), Image::Alpha::any};
}

}

TEST(PNGCodec, ReadsEveryColourTypeAndDepthAsTheFormatsOwnLibraryDoes)
{
    const ByteBuffer grayKey{0, 1};
    const ByteBuffer alphas{0, 100, 255};
    const ByteBuffer none;
    const std::tuple<ColorType, std::vector<std::uint8_t>, ByteBuffer> rows[] = {
        {gray, {1, 2, 4, 8}, none},
        {gray, {1, 2, 4}, support::pngChunk("tRNS", grayKey)},
        {rgbColor, {8}, none},
        {palette, {1, 2, 4, 8}, none},
        {palette, {2, 4, 8}, support::pngChunk("tRNS", alphas)},
        {grayAlpha, {8}, none},
        {rgba, {8}, none},
    };
    for (const auto& [colorType, depths, extraChunks] : rows)
        for (const std::uint8_t depth : depths)
            for (const bool isInterlaced : {false, true}) {
                SCOPED_TRACE(testing::Message() << "type " << colorType << ", depth " << int{depth}
                                                << ", interlaced " << isInterlaced);
                const auto file = randomFile({13, 11, depth, colorType, isInterlaced}, extraChunks);
                expectPixels(PNGCodec::decode(file, generous), simplyRead(file));
            }
}

TEST(PNGCodec, KeepsTheHighByteOfSixteenBits)
{
    const ByteBuffer row{0, 10, 99, 20, 99, 30, 99, 255, 255, 40, 0, 50, 0, 60, 0, 70, 0};
    const auto pixels = support::pngChunk("IDAT", support::zlibStream(row));
    expectPixels(PNGCodec::decode(support::pngFile({2, 1, 16, rgba}, pixels), generous),
                 {packPixel(10, 20, 30), packPixel(40, 50, 60, 70)});
}

TEST(PNGCodec, IgnoresGamma)
{
    const PNGHeader header{13, 11, 8, rgbColor};
    const ByteBuffer gamma{0, 1, 0x86, 0xA0}; // 1
    EXPECT_EQ(PNGCodec::decode(randomFile(header, support::pngChunk("gAMA", gamma)), generous),
              PNGCodec::decode(randomFile(header), generous));
}

TEST(PNGCodec, GivesNothingForFilesCutShortOrDamaged)
{
    for (const bool isInterlaced : {false, true}) {
        const ByteBuffer whole = randomFile({13, 11, 8, palette, isInterlaced});
        ASSERT_TRUE(PNGCodec::decode(whole, generous));
        for (std::size_t i = 0; i < whole.size(); ++i) {
            ASSERT_FALSE(PNGCodec::decode(ByteView(whole).first(i), generous)) << i;
            ByteBuffer damaged = whole;
            damaged[i] ^= 0x20;
            EXPECT_FALSE(PNGCodec::decode(damaged, generous)) << i;
        }
    }
}

TEST(PNGCodec, KeepsToItsLimits)
{
    const ByteBuffer file = randomFile({13, 11, 8, rgbColor});
    EXPECT_TRUE(PNGCodec::decode(file, {.maxSide = 13, .maxPixels = 143}));
    EXPECT_FALSE(PNGCodec::decode(file, {.maxSide = 12, .maxPixels = 143}));
    EXPECT_FALSE(PNGCodec::decode(file, {.maxSide = 13, .maxPixels = 142}));
}

TEST(PNGCodec, WritesWhatTheFormatsOwnLibraryReadsBack)
{
    for (const Size size : {
             Size{1,  1 },
             Size{5,  40},
             Size{64, 22}
    }) {
        const Image image = translucentImage(size, 11);
        const auto bytes = PNGCodec::encode(image);
        ASSERT_TRUE(bytes);
        std::vector<Pixel> expected;
        for (int y = 0; y < size.height; ++y)
            for (const Pixel pixel : image.row(y))
                expected.push_back(unpremultiply(pixel));
        EXPECT_EQ(simplyRead(*bytes), expected) << size.width << "x" << size.height;
        EXPECT_EQ(PNGCodec::decode(*bytes, generous), image);
    }
    const auto crop = *translucentImage({20, 20}, 12).crop({3, 4, 11, 9});
    EXPECT_EQ(PNGCodec::decode(*PNGCodec::encode(crop), generous), crop);
    const auto solid = support::solidImage({7, 7}, {1, 2, 3});
    EXPECT_EQ(PNGCodec::decode(*PNGCodec::encode(solid), generous), solid);
}

TEST(PNGCodec, WritesNothingThatNoReaderAccepts)
{
    const PNGCodec::Text nameless[] = {
        {"", "text"}
    };
    EXPECT_FALSE(PNGCodec::encode(support::solidImage({1, 1}, {}), nameless));
    EXPECT_TRUE(PNGCodec::encode(support::solidImage({PNGCodec::maxEncodedSide, 1}, {})));
    EXPECT_FALSE(PNGCodec::encode(support::solidImage({PNGCodec::maxEncodedSide + 1, 1}, {})));
    EXPECT_FALSE(PNGCodec::encode(support::solidImage({1, PNGCodec::maxEncodedSide + 1}, {})));
}

TEST(PNGCodec, TellsTheSizeThatAFileStates)
{
    const auto file = *PNGCodec::encode(support::solidImage({300, 7}, {1, 2, 3}));
    EXPECT_EQ(PNGCodec::size(file), (Size{300, 7}));
    EXPECT_EQ(PNGCodec::size(ByteView(file).first(24)), (Size{300, 7}));
    EXPECT_FALSE(PNGCodec::size(ByteView(file).first(23)));
    for (const std::size_t place : {12U, 16U}) { // the chunk's name, the sign of the width
        ByteBuffer other = file;
        other[place] ^= 0x80;
        EXPECT_FALSE(PNGCodec::size(other));
    }
}
