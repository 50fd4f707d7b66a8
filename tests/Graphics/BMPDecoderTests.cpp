#include "SkinKit/Graphics/BMPDecoder.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

// All depths, headers, masks and runs, whole and damaged, are compared with another decoder in
// tests/differential. These are the limits, and the rules that a comparison could share.
using namespace SkinKit;
using support::BMPFile;
using support::ByteBuffer;

namespace {

using Rows = std::vector<std::string>;

const support::Legend legend{
    {'.', packPixel(0,   0,   0)  },
    {'r', packPixel(255, 0,   0)  },
    {'g', packPixel(0,   255, 0)  },
    {'b', packPixel(0,   0,   255)},
};

std::optional<Rows> decodedRows(const ByteBuffer& file)
{
    const auto image = BMPDecoder::decode(file);
    return image ? std::optional(support::rowsOf(*image, legend)) : std::nullopt;
}

ByteBuffer onePixel()
{
    return BMPFile{
        .pixels = {0, 0, 255, 0}
    }
        .bytes();
}

ByteBuffer runs(int bitCount, const ByteBuffer& stream)
{
    return BMPFile{
        .width = 4,
        .height = 2,
        .bitCount = bitCount,
        .compression = bitCount == 8 ? 1U : 2U,
        .colorsUsed = 4,
        .palette = {{0, 0, 0}, {255, 0, 0}, {0, 255, 0}, {0, 0, 255}},
        .pixels = stream
    }
        .bytes();
}

}

TEST(BMPDecoder, RejectsWrongHeaders)
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
        file.resize(file.size() + 200'000); // so that nothing is rejected for being short
        support::put32(file, offset, value);
        EXPECT_EQ(BMPDecoder::decode(file).has_value(), decodes) << value << " at " << offset;
    }
}

TEST(BMPDecoder, LimitsThePixelsAsWellAsTheSides)
{
    for (const int height : {2048, 2049}) {
        BMPFile file{
            .width = 4096, .height = height, .bitCount = 1, .colorsUsed = 2, .palette = {{}, {}}
        };
        file.pixels.resize(512 * static_cast<std::size_t>(height));
        EXPECT_EQ(BMPDecoder::decode(file.bytes()).has_value(), height == 2048);
    }
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
        EXPECT_EQ(decodedRows(runs(rows[i].bitCount, rows[i].stream)), rows[i].expected)
            << "row " << i;
}
