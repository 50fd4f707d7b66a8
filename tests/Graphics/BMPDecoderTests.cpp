#include "SkinKit/Graphics/BMPDecoder.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/Pictures.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace SkinKit;
using support::ByteBuffer;

namespace {

using Rows = std::vector<std::string>;

constexpr RGBColor paletteColors[] = {
    {0,   0,   0  },
    {255, 0,   0  },
    {0,   255, 0  },
    {0,   0,   255}
};
const support::Legend legend{
    {'.', packPixel(0,   0,   0)  },
    {'r', packPixel(255, 0,   0)  },
    {'g', packPixel(0,   255, 0)  },
    {'b', packPixel(0,   0,   255)},
};

// A bitmap with any header; what is not in the 12 or 40 bytes that all share is zero.
struct AnyBMP {
    std::uint32_t headerBytes = 40;
    int width = 1;
    int height = 1;
    int bitCount = 24;
    std::uint32_t compression = 0;
    std::uint32_t colorsUsed = 0;
    std::vector<std::uint32_t> masks; // written at offset 54, whatever the header
    std::vector<RGBColor> palette;
    ByteBuffer pixels;

    ByteBuffer bytes() const
    {
        ByteBuffer file = support::bytes("BM");
        support::append(file, ByteBuffer(12, 0));
        support::append32(file, headerBytes);
        if (headerBytes == 12) {
            support::append16(file, static_cast<std::uint32_t>(width));
            support::append16(file, static_cast<std::uint32_t>(height));
        } else {
            support::append32(file, static_cast<std::uint32_t>(width));
            support::append32(file, static_cast<std::uint32_t>(height));
        }
        support::append16(file, 1);
        support::append16(file, static_cast<std::uint32_t>(bitCount));
        file.resize(14 + std::max(headerBytes, 12U) + (headerBytes == 40 ? 4 * masks.size() : 0));
        std::fill(file.begin() + (headerBytes == 12 ? 26 : 30), file.end(), std::uint8_t{0});
        if (headerBytes > 12) {
            support::put32(file, 30, compression);
            support::put32(file, 46, colorsUsed);
        }
        for (std::size_t i = 0; i < masks.size(); ++i)
            support::put32(file, 54 + 4 * i, masks[i]);
        for (const RGBColor& color : palette) {
            file.insert(file.end(), {color.blue, color.green, color.red});
            if (headerBytes != 12)
                file.push_back(99); // reserved; not an alpha
        }
        support::put32(file, 10, static_cast<std::uint32_t>(file.size()));
        support::append(file, pixels);
        return file;
    }
};

std::size_t strideOf(const AnyBMP& file)
{
    std::size_t bytes = (static_cast<std::size_t>(file.width * file.bitCount) + 7) / 8;
    while (bytes % 4 != 0)
        ++bytes;
    return bytes;
}

unsigned scaledChannel(std::uint32_t value, std::uint32_t mask)
{
    if (mask == 0)
        return 0;
    value &= mask;
    int setBits = 0;
    for (std::uint32_t rest = mask; rest != 0; rest &= rest - 1)
        ++setBits;
    while (mask % 2 == 0) {
        mask /= 2;
        value /= 2;
    }
    const long double most = std::pow(2.0L, setBits) - 1;
    return static_cast<unsigned>(std::min(255.0L, std::floor(value * 255.0L / most)));
}

// One pixel, the long way: its bits are picked one by one.
Pixel referencePixel(const AnyBMP& file, int x, int y)
{
    const int fileRow = file.height < 0 ? y : file.height - 1 - y;
    const auto row =
        std::span(file.pixels).subspan(static_cast<std::size_t>(fileRow) * strideOf(file));
    if (file.bitCount <= 8) {
        std::size_t index = 0;
        for (int bit = x * file.bitCount; bit < (x + 1) * file.bitCount; ++bit)
            index = 2 * index + (row[static_cast<std::size_t>(bit / 8)] >> (7 - bit % 8) & 1U);
        return index < file.palette.size() ? opaquePixel(file.palette[index]) : packPixel(0, 0, 0);
    }
    std::uint32_t value = 0;
    for (int byte = file.bitCount / 8 - 1; byte >= 0; --byte)
        value = value << 8 | row[static_cast<std::size_t>(x * file.bitCount / 8 + byte)];
    std::vector<std::uint32_t> masks = file.masks;
    if (masks.empty())
        masks = file.bitCount == 16 ? std::vector<std::uint32_t>{0x7C00, 0x3E0, 0x1F}
                                    : std::vector<std::uint32_t>{0xFF0000, 0xFF00, 0xFF};
    return packPixel(scaledChannel(value, masks[0]), scaledChannel(value, masks[1]),
                     scaledChannel(value, masks[2]));
}

void expectReference(const AnyBMP& file)
{
    const auto image = BMPDecoder::decode(file.bytes());
    ASSERT_TRUE(image);
    EXPECT_TRUE(image->isOpaque());
    ASSERT_EQ(image->size(), (Size{file.width, std::abs(file.height)}));
    for (int y = 0; y < image->height(); ++y)
        for (int x = 0; x < image->width(); ++x)
            ASSERT_EQ(image->pixel({x, y}), referencePixel(file, x, y)) << x << ", " << y;
}

// Random pixels, and for the small depths a palette of `colors` random colours.
void fillRandomly(AnyBMP& file, std::size_t colors, std::mt19937& random)
{
    file.colorsUsed = static_cast<std::uint32_t>(colors);
    file.palette.clear();
    for (std::size_t i = 0; i < colors; ++i)
        file.palette.push_back(rgb(static_cast<std::uint32_t>(random())));
    file.pixels.resize(strideOf(file) * static_cast<std::size_t>(std::abs(file.height)));
    for (auto& byte : file.pixels)
        byte = static_cast<std::uint8_t>(random());
}

std::optional<Rows> decodedRows(const ByteBuffer& file)
{
    const auto image = BMPDecoder::decode(file);
    return image ? std::optional(support::rowsOf(*image, legend)) : std::nullopt;
}

ByteBuffer onePixel()
{
    return AnyBMP{
        .pixels = {0, 0, 255, 0}
    }
        .bytes();
}

ByteBuffer runs(int bitCount, Size size, const ByteBuffer& stream)
{
    return support::BMPFile{
        .width = size.width,
        .height = size.height,
        .bitCount = bitCount,
        .compression = bitCount == 8 ? 1U : 2U,
        .colorsUsed = 4,
        .palette = {std::begin(paletteColors), std::end(paletteColors)},
        .pixels = stream
    }
        .bytes();
}

}

TEST(BMPDecoder, AgreesWithAPixelByPixelReferenceAtEveryDepthWidthAndHeader)
{
    std::mt19937 random(1);
    for (const std::uint32_t headerBytes : {12U, 40U, 52U, 56U, 108U, 124U})
        for (const int bitCount : {1, 4, 8, 16, 24, 32})
            for (const int width : {1, 2, 3, 5, 7, 8, 9, 15, 16, 17, 31, 33})
                for (const int height : {3, -3}) {
                    AnyBMP file{.headerBytes = headerBytes,
                                .width = width,
                                .height = headerBytes == 12 ? 3 : height,
                                .bitCount = bitCount};
                    const std::size_t most = bitCount <= 8 ? std::size_t{1} << bitCount : 0;
                    fillRandomly(file, headerBytes == 12 ? most : (most + 1) / 2, random);
                    SCOPED_TRACE(testing::Message() << "header " << headerBytes << ", depth "
                                                    << bitCount << ", " << width << "x" << height);
                    expectReference(file);
                }
}

TEST(BMPDecoder, ScalesBitFieldsOfAnyMasks)
{
    std::mt19937 random(2);
    const std::vector<std::uint32_t> masks[] = {
        {0xF800,     0x07E0,     0x001F    }, // 5-6-5
        {0x000F,     0x00F0,     0x0F00    }, // other order
        {0x8000,     0x0001,     0         }, // single bits; no blue
        {0xFFFF,     0x5555,     0x0810    }, // overlapping, with holes
        {0xFF000000, 0x00FF0000, 0x0000FF00}, // the low byte unused
        {0xFFFFFFFF, 0x80000001, 0x7FFFFFFE}, // wider than eight bits
        {0x3FF00000, 0x000FFC00, 0x000003FF}, // 10-10-10
    };
    for (const auto& channels : masks)
        for (const int bitCount : {16, 32})
            for (const std::uint32_t headerBytes : {40U, 52U, 56U, 108U, 124U}) {
                AnyBMP file{.headerBytes = headerBytes,
                            .width = 19,
                            .height = 5,
                            .bitCount = bitCount,
                            .compression = 3,
                            .masks = channels};
                fillRandomly(file, 0, random);
                SCOPED_TRACE(testing::Message()
                             << std::hex << channels[0] << ", depth " << bitCount);
                expectReference(file);
            }
}

TEST(BMPDecoder, RefusesHeadersThatAreWrong)
{
    ByteBuffer lower = onePixel();
    lower[0] = 'b';
    EXPECT_FALSE(BMPDecoder::decode(lower));
    const struct {
        std::size_t offset;
        std::uint32_t value;
        bool decodes;
    } rows[] = {
        {0,  0x4142,     false}, // "BA"
        {14, 64,         false}, // the header's size
        {14, 0,          false},
        {14, 41,         false},
        {14, 16,         false},
        {14, 0xFFFFFFFF, false},
        {18, 0,          false}, // width
        {18, 4097,       false},
        {18, 0xFFFFFFFF, false},
        {18, 4096,       true },
        {22, 0,          false}, // height
        {22, 4097,       false},
        {22, 4096,       true },
        {22, 0xFFFFF000, true }, // -4096 rows
        {22, 0xFFFFEFFF, false}, // -4097
        {22, 0x80000000, false},
    };
    for (const auto& [offset, value, decodes] : rows) {
        ByteBuffer file = onePixel();
        file.resize(file.size() + 200'000); // so that nothing is refused for being short
        support::put32(file, offset, value);
        EXPECT_EQ(BMPDecoder::decode(file).has_value(), decodes) << value << " at " << offset;
    }
}

TEST(BMPDecoder, PairsCompressionsWithTheirDepths)
{
    const std::vector<int> pairs[] = {
        {1, 4, 8, 16, 24, 32},
        {8},
        {4},
        {16, 32},
        {}
    };
    for (std::uint32_t compression = 0; compression < std::size(pairs); ++compression)
        for (int depth = 0; depth <= 40; ++depth) {
            AnyBMP file{.bitCount = depth, .compression = compression};
            if (compression == 3)
                file.masks = {1, 2, 4};
            file.palette.resize(depth <= 8 ? 256 : 0);
            file.pixels = {0, 1, 0, 1};
            EXPECT_EQ(BMPDecoder::decode(file.bytes()).has_value(),
                      std::ranges::count(pairs[compression], depth) > 0)
                << "compression " << compression << ", depth " << depth;
            if (compression == 1 || compression == 2) {
                file.height = -1;
                EXPECT_FALSE(BMPDecoder::decode(file.bytes())) << "top-down runs";
            }
        }
}

TEST(BMPDecoder, BoundsAPictureByItsPixelsAsWellAsItsSides)
{
    AnyBMP file{
        .width = 4096, .height = 2048, .bitCount = 1, .colorsUsed = 2, .palette = {{}, {}}
    };
    file.pixels.resize(512 * 2048);
    EXPECT_TRUE(BMPDecoder::decode(file.bytes()));
    file.height = 2049;
    file.pixels.resize(512 * 2049);
    EXPECT_FALSE(BMPDecoder::decode(file.bytes()));
}

TEST(BMPDecoder, RefusesEveryFileThatIsCutShort)
{
    const Image image = support::picture({"rgb", "b.r"}, legend);
    const auto expectRefused = [](const ByteBuffer& whole, std::size_t needed) {
        ASSERT_TRUE(BMPDecoder::decode(whole));
        for (std::size_t length = 0; length < needed; ++length)
            EXPECT_FALSE(BMPDecoder::decode(ByteView(whole).first(length))) << length;
    };
    for (const ByteBuffer& whole : {
             support::encodeBMP(image, 4), support::encodeBMP(image, 24),
             AnyBMP{.headerBytes = 12, .pixels = {1, 2, 3, 0}}
             .bytes(),
             AnyBMP{.bitCount = 32, .compression = 3, .masks = {1, 2, 4}, .pixels = {1, 2, 3, 4}}
                 .bytes()
    })
        expectRefused(whole, whole.size());
    // The end of the last line is as good an end as the end of the bitmap that follows it.
    const ByteBuffer runsOfLines = support::encodeRLE(image, 8);
    expectRefused(runsOfLines, runsOfLines.size() - 2);
    EXPECT_TRUE(BMPDecoder::decode(ByteView(runsOfLines).first(runsOfLines.size() - 2)));
}

TEST(BMPDecoder, CorrectsAPixelOffsetThatCannotBe)
{
    for (const std::uint32_t offset : {0U, 10U, 53U, 58U, 59U, 0x80000000U, 0xFFFFFFFFU}) {
        ByteBuffer file = onePixel();
        ASSERT_EQ(file.size(), 58U);
        support::put32(file, 10, offset);
        EXPECT_EQ(decodedRows(file), Rows{"r"}) << offset;
    }
    // One that can be is taken, here into padding that follows the pixels.
    ByteBuffer file = onePixel();
    support::append(file, ByteBuffer{0, 255, 0, 0});
    support::put32(file, 10, 58);
    EXPECT_EQ(decodedRows(file), Rows{"g"});
    // And with too few pixels behind it, it is not corrected.
    support::put32(file, 10, 59);
    EXPECT_FALSE(BMPDecoder::decode(file));
}

TEST(BMPDecoder, ShowsIndicesBeyondThePaletteAsBlack)
{
    AnyBMP file{
        .width = 4, .bitCount = 8, .colorsUsed = 2, .palette = {{255, 0, 0}, {0, 255, 0}}
    };
    file.pixels = {0, 1, 2, 200};
    EXPECT_EQ(decodedRows(file.bytes()), Rows{"rg.."});
    // More colours than the depth can index mean a full palette.
    file.colorsUsed = 300;
    EXPECT_FALSE(BMPDecoder::decode(file.bytes()));
    file.palette.resize(256, {0, 0, 255});
    EXPECT_EQ(decodedRows(file.bytes()), Rows{"rgbb"});
}

TEST(BMPDecoder, DecodesRunsToThePictureOfTheUncompressedTwin)
{
    std::mt19937 random(3);
    for (const int bitCount : {4, 8})
        for (const int width : {1, 2, 3, 7, 8, 61, 300}) {
            auto pixels = PixelBuffer::uninitialized({width, 5});
            Pixel ink = legend.at('.');
            for (Pixel& pixel : std::span(pixels.data(), pixels.count())) {
                if (random() % 3 == 0)
                    ink = opaquePixel(paletteColors[random() % 4]);
                pixel = ink;
            }
            const Image image(std::move(pixels), Image::Alpha::opaque);
            const auto twin = BMPDecoder::decode(support::encodeBMP(image, bitCount));
            ASSERT_TRUE(twin);
            EXPECT_EQ(*twin, image);
            EXPECT_EQ(BMPDecoder::decode(support::encodeRLE(image, bitCount)), image)
                << "depth " << bitCount << ", width " << width;
        }
}

TEST(BMPDecoder, FollowsRunsToTheLetter)
{
    struct Row {
        int bitCount;
        ByteBuffer stream;
        std::optional<Rows> expected; // of 4 × 2 pixels
    };
    const Row rows[] = {
        // what the stream skips keeps the palette's first colour
        {8, {0, 1},                             Rows{"....", "...."}},
        {8, {2, 1, 0, 1},                       Rows{"....", "rr.."}},
        // an end of line on the last line ends the picture
        {8, {4, 1, 0, 0, 4, 2, 0, 0},           Rows{"gggg", "rrrr"}},
        {8, {0, 0, 0, 0},                       Rows{"....", "...."}},
        {8, {0, 0, 0, 0, 9},                    Rows{"....", "...."}},
        // lines never wrap, and what is too much is dropped
        {8, {3, 1, 3, 2, 0, 1},                 Rows{"....", "rrrg"}},
        {8, {255, 1, 255, 2, 0, 0, 1, 3, 0, 1}, Rows{"b...", "rrrr"}},
        {8, {0, 6, 1, 2, 3, 1, 2, 3, 0, 1},     Rows{"....", "rgbr"}},
        // a delta moves on; one that leaves the picture ends it
        {8, {1, 1, 0, 2, 1, 1, 1, 2, 0, 1},     Rows{"..g.", "r..."}},
        {8, {1, 1, 0, 2, 200, 0, 1, 2, 0, 1},   Rows{"....", "r..."}},
        {8, {1, 1, 0, 2, 0, 2},                 Rows{"....", "r..."}},
        {8, {1, 1, 0, 2, 9, 255},               Rows{"....", "r..."}},
        {8, {1, 1, 0, 2, 0},                    std::nullopt        },
        // absolute runs are padded to even lengths, unless the file ends
        {8, {0, 3, 1, 2, 3, 99, 0, 1},          Rows{"....", "rgb."}},
        {8, {0, 4, 1, 2, 3, 1, 0, 1},           Rows{"....", "rgbr"}},
        {8, {0, 3, 1, 2},                       std::nullopt        },
        {8, {0, 3, 1, 2, 3},                    std::nullopt        },
        {8, {0, 3, 1, 2, 3, 0},                 std::nullopt        },
        // a stream must not end with a run, nor inside a pair
        {8, {4, 1, 0, 0, 4, 2},                 std::nullopt        },
        {8, {4, 1, 0},                          std::nullopt        },
        {8, {},                                 std::nullopt        },
        // indices beyond the palette are black
        {8, {3, 200, 1, 1, 0, 1},               Rows{"....", "...r"}},
        // two pixels in turn
        {4, {4, 0x12, 0, 0, 3, 0x31, 0, 1},     Rows{"brb.", "rgrg"}},
        {4, {0, 3, 0x12, 0x30, 0, 1},           Rows{"....", "rgb."}},
        {4, {0, 5, 0x12, 0x31, 0x20, 99, 0, 1}, Rows{"....", "rgbr"}},
        {4, {0, 4, 0x12, 0x31, 0, 1},           Rows{"....", "rgbr"}},
        {4, {1, 0x12, 3, 0x12, 0, 1},           Rows{"....", "rrgr"}},
        {4, {2, 0x1F, 0, 1},                    Rows{"....", "r..."}},
        {4, {0, 5, 0x12, 0x31},                 std::nullopt        },
    };
    for (std::size_t i = 0; i < std::size(rows); ++i)
        EXPECT_EQ(decodedRows(runs(rows[i].bitCount, {4, 2}, rows[i].stream)), rows[i].expected)
            << "row " << i;
}
