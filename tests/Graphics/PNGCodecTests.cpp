#include "SkinKit/Graphics/PNGCodec.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/Bytes.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <png.h>

#include <cstring>
#include <random>

using namespace SkinKit;
using support::ByteBuffer;

namespace {

constexpr PNGCodec::Limits generous{.maxSide = 4096, .maxPixels = 1 << 23};

struct PNGFile {
    int width = 1;
    int height = 1;
    int colorType = PNG_COLOR_TYPE_RGB;
    int depth = 8;
    int interlace = PNG_INTERLACE_NONE;
    bool hasTransparentColor = false; // the first pixel's
    double gamma = 0;
    ByteBuffer rows; // as PNG has them, unfiltered

    std::size_t bytesPerRow() const
    {
        const int channels[] = {1, 0, 3, 1, 2, 0, 4};
        return (static_cast<std::size_t>(width * channels[colorType] * depth) + 7) / 8;
    }
};

std::uint16_t firstSample(const PNGFile& file, std::size_t channel)
{
    if (file.depth == 16)
        return static_cast<std::uint16_t>(file.rows[2 * channel] << 8 | file.rows[2 * channel + 1]);
    return static_cast<std::uint16_t>(file.rows[channel] >> (8 - file.depth));
}

// Written by the format's own library.
ByteBuffer encoded(const PNGFile& file)
{
    ByteBuffer bytes;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(
        png, &bytes,
        [](png_structp writer, png_bytep data, std::size_t count) {
            support::append(*static_cast<ByteBuffer*>(png_get_io_ptr(writer)), {data, count});
        },
        nullptr);
    png_set_IHDR(png, info, static_cast<png_uint_32>(file.width),
                 static_cast<png_uint_32>(file.height), file.depth, file.colorType, file.interlace,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (file.gamma > 0)
        png_set_gAMA(png, info, file.gamma);
    std::vector<png_color> palette(std::size_t{1} << std::min(file.depth, 8));
    std::vector<png_byte> alphas;
    for (std::size_t i = 0; i < palette.size(); ++i) {
        palette[i] = {static_cast<png_byte>(i * 37), static_cast<png_byte>(255 - i),
                      static_cast<png_byte>(i * 5)};
        alphas.push_back(static_cast<png_byte>(i * 101));
    }
    if (file.colorType == PNG_COLOR_TYPE_PALETTE)
        png_set_PLTE(png, info, palette.data(), static_cast<int>(palette.size()));
    if (file.hasTransparentColor) {
        png_color_16 color{};
        color.gray = firstSample(file, 0);
        if (file.colorType == PNG_COLOR_TYPE_RGB) {
            color.red = firstSample(file, 0);
            color.green = firstSample(file, 1);
            color.blue = firstSample(file, 2);
        }
        png_set_tRNS(png, info, alphas.data(), static_cast<int>(alphas.size()), &color);
    }
    std::vector<png_bytep> rows;
    for (int y = 0; y < file.height; ++y)
        rows.push_back(const_cast<png_bytep>(file.rows.data()) +
                       static_cast<std::size_t>(y) * file.bytesPerRow());
    png_set_rows(png, info, rows.data());
    png_write_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr);
    png_destroy_write_struct(&png, &info);
    return bytes;
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

PNGFile randomFile(int colorType, int depth, int interlace, unsigned seed)
{
    PNGFile file{
        .width = 13, .height = 11, .colorType = colorType, .depth = depth, .interlace = interlace};
    std::mt19937 random(seed);
    file.rows.resize(file.bytesPerRow() * static_cast<std::size_t>(file.height));
    for (auto& byte : file.rows)
        byte = static_cast<std::uint8_t>(random() % 3 == 0 ? 0x80 : random());
    return file;
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
    const std::tuple<int, std::vector<int>, bool> rows[] = {
        {PNG_COLOR_TYPE_GRAY,       {1, 2, 4, 8}, true },
        {PNG_COLOR_TYPE_RGB,        {8},          true },
        {PNG_COLOR_TYPE_PALETTE,    {1, 2, 4, 8}, true },
        {PNG_COLOR_TYPE_GRAY_ALPHA, {8},          false},
        {PNG_COLOR_TYPE_RGB_ALPHA,  {8},          false},
    };
    for (const auto& [colorType, depths, mayHaveTransparentColor] : rows)
        for (const int depth : depths)
            for (const int interlace : {PNG_INTERLACE_NONE, PNG_INTERLACE_ADAM7})
                for (const bool transparent : {false, true}) {
                    if (transparent && !mayHaveTransparentColor)
                        continue;
                    PNGFile file = randomFile(colorType, depth, interlace, 6);
                    file.hasTransparentColor = transparent;
                    SCOPED_TRACE(testing::Message()
                                 << "type " << colorType << ", depth " << depth << ", interlace "
                                 << interlace << ", transparent " << transparent);
                    const ByteBuffer bytes = encoded(file);
                    expectPixels(PNGCodec::decode(bytes, generous), simplyRead(bytes));
                }
}

TEST(PNGCodec, KeepsTheHighByteOfSixteenBits)
{
    const PNGFile file = randomFile(PNG_COLOR_TYPE_RGB_ALPHA, 16, PNG_INTERLACE_NONE, 7);
    std::vector<Pixel> expected;
    for (std::size_t i = 0; i < file.rows.size(); i += 8)
        expected.push_back(
            packPixel(file.rows[i], file.rows[i + 2], file.rows[i + 4], file.rows[i + 6]));
    expectPixels(PNGCodec::decode(encoded(file), generous), expected);
}

TEST(PNGCodec, IgnoresGamma)
{
    PNGFile file = randomFile(PNG_COLOR_TYPE_RGB, 8, PNG_INTERLACE_NONE, 8);
    const auto plain = PNGCodec::decode(encoded(file), generous);
    file.gamma = 1;
    EXPECT_EQ(PNGCodec::decode(encoded(file), generous), plain);
}

TEST(PNGCodec, GivesNothingForFilesCutShortOrDamaged)
{
    for (const int interlace : {PNG_INTERLACE_NONE, PNG_INTERLACE_ADAM7}) {
        const ByteBuffer whole = encoded(randomFile(PNG_COLOR_TYPE_PALETTE, 8, interlace, 9));
        ASSERT_TRUE(PNGCodec::decode(whole, generous));
        for (std::size_t length = 0; length < whole.size(); ++length)
            ASSERT_FALSE(PNGCodec::decode(ByteView(whole).first(length), generous)) << length;
        for (std::size_t i = 0; i < whole.size(); ++i) {
            ByteBuffer damaged = whole;
            damaged[i] ^= 0x20;
            EXPECT_FALSE(PNGCodec::decode(damaged, generous)) << i;
        }
    }
}

TEST(PNGCodec, KeepsToItsLimits)
{
    const ByteBuffer bytes = encoded(randomFile(PNG_COLOR_TYPE_RGB, 8, PNG_INTERLACE_NONE, 10));
    EXPECT_TRUE(PNGCodec::decode(bytes, {.maxSide = 13, .maxPixels = 143}));
    EXPECT_FALSE(PNGCodec::decode(bytes, {.maxSide = 12, .maxPixels = 143}));
    EXPECT_FALSE(PNGCodec::decode(bytes, {.maxSide = 13, .maxPixels = 142}));
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

TEST(PNGCodec, WritesRemarksInFrontOfThePixels)
{
    const Image image = support::solidImage({3, 2}, {1, 2, 3});
    const PNGCodec::Text texts[] = {
        {"Title", ""   },
        {"Width", "275"},
    };
    const auto bytes = PNGCodec::encode(image, texts);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(PNGCodec::decode(*bytes, generous), image);
    using namespace std::string_view_literals;
    const std::string_view file = asText(*bytes);
    const auto title = file.find("\0\0\0\x06tEXtTitle\0"sv);
    const auto width = file.find("\0\0\0\x09tEXtWidth\0"
                                 "275"sv);
    EXPECT_LT(title, width);
    EXPECT_LT(width, file.find("IDAT"));
}

TEST(PNGCodec, RefusesToWriteWhatNoReaderTakes)
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
