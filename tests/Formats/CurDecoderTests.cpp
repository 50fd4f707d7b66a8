#include "SkinKit/Formats/CurDecoder.h"
#include "SkinKit/Graphics/BMPDecoder.h"
#include "SkinKit/Graphics/PNGCodec.h"
#include "tests/support/CursorWriter.h"
#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace SkinKit;
using support::append32;
using support::BMPFile;
using support::ByteBuffer;
using support::CurFile;
using support::curFile;
using support::cursorPicture;
using support::encodeBMP;
using support::picture;
using support::rowsOf;
using support::solidImage;

namespace {

using Rows = std::vector<std::string>;

const support::Legend legend{
    {'.', transparentPixel},
    {'k', packPixel(0, 0, 0)},
    {'w', packPixel(255, 255, 255)},
    {'r', packPixel(255, 0, 0)},
    {'b', packPixel(0, 0, 255)},
};

// Top to bottom; black is the first colour, so it makes the first entry of a palette.
const Image checkered = picture({"kwk", "wkw"}, legend);
const std::vector<std::string_view> corner{"#--", "---"};

// The rows of the only picture, or a remark.
Rows rowsOfOnly(ByteView file)
{
    const auto cursor = CurDecoder::decode(file);
    if (!cursor)
        return {"unreadable"};
    if (cursor->images.size() != 1)
        return {"several"};
    return rowsOf(cursor->images[0].image, legend);
}

// A bitmap of one row, 32 bits a pixel.
ByteBuffer row32(const std::vector<std::uint32_t>& pixels)
{
    BMPFile file{.width = static_cast<int>(pixels.size()), .height = 1, .bitCount = 32};
    for (const auto pixel : pixels)
        append32(file.pixels, pixel);
    return file.bytes();
}

// A bitmap without its file header, nothing else changed.
ByteBuffer plainBitmap(const Image& image)
{
    const auto file = encodeBMP(image, 24);
    return {file.begin() + 14, file.end()};
}

ByteBuffer png(const Image& image)
{
    return *PNGCodec::encode(image);
}

// A picture in so many random colours.
Image noise(Size size, int colors)
{
    std::mt19937 random(7);
    std::vector<Pixel> palette(static_cast<std::size_t>(colors));
    for (auto& color : palette)
        color = (random() & 0x00FFFFFF) | packPixel(0, 0, 0);
    auto pixels = PixelBuffer::uninitialized(size);
    for (std::size_t i = 0; i < pixels.count(); ++i)
        pixels.data()[i] = palette[random() % palette.size()];
    return {std::move(pixels), Image::Alpha::opaque};
}

}

TEST(CurDecoder, HidesWhatTheMaskCoversAtEveryDepth)
{
    // Of few colours, so that palettes are short; and so wide that the mask's rows are padded.
    const Image colors = noise({33, 2}, 2);
    const std::string clear(32, '-');
    for (const int bitCount : {1, 4, 8, 16, 24, 32}) {
        const auto bmp = encodeBMP(colors, bitCount);
        const auto cursor =
            CurDecoder::decode(curFile(cursorPicture(bmp, {clear + '#', '#' + clear})));
        ASSERT_TRUE(cursor);
        EXPECT_EQ(cursor->images[0].bitCount, bitCount);
        const Image& image = cursor->images[0].image;
        EXPECT_FALSE(image.isOpaque());
        const Image shown = *BMPDecoder::decode(bmp);
        for (int y = 0; y < 2; ++y)
            for (int x = 0; x < 33; ++x) {
                const bool isMasked = Point{x, y} == Point{32, 0} || Point{x, y} == Point{0, 1};
                ASSERT_EQ(image.pixel({x, y}), isMasked ? transparentPixel : shown.pixel({x, y}))
                    << bitCount << ": " << x << ", " << y;
            }
    }
}

TEST(CurDecoder, DecodesColoursAsTheBitmapDecoderDoes)
{
    for (const int bitCount : {1, 4, 8, 16, 24, 32})
        for (const int width : {1, 2, 7, 8, 31, 33, 256}) {
            const auto bmp = encodeBMP(noise({width, 5}, 2), bitCount);
            const auto cursor = CurDecoder::decode(curFile(cursorPicture(bmp)));
            ASSERT_TRUE(cursor) << bitCount << " bits, width " << width;
            EXPECT_EQ(cursor->images[0].image, *BMPDecoder::decode(bmp))
                << bitCount << " bits, width " << width;
            EXPECT_TRUE(cursor->images[0].image.isOpaque());
        }
}

TEST(CurDecoder, TakesAlphaInsteadOfTheMaskWhereThereIsAny)
{
    const auto bmp = row32({0xFFFF0000, 0x80FFFFFF, 0x00FFFFFF});
    const auto cursor = CurDecoder::decode(curFile(cursorPicture(bmp, {"###"})));
    ASSERT_TRUE(cursor);
    const Image& image = cursor->images[0].image;
    EXPECT_EQ(image.pixel({0, 0}), packPixel(255, 0, 0));
    EXPECT_EQ(image.pixel({1, 0}), packPixel(128, 128, 128, 128));
    EXPECT_EQ(image.pixel({2, 0}), transparentPixel);
    EXPECT_EQ(rowsOfOnly(curFile(cursorPicture(row32({0xFF0000, 0x0000FF}), {"-#"}))), Rows{"r."});
}

TEST(CurDecoder, TakesAByteThatBelongsToAColourForNoAlpha)
{
    for (const auto& [red, expected] : {
             std::pair{0x00FF0000U, packPixel(128, 0, 0, 128)},
             {0xFF000000U, packPixel(128, 0, 0)}
    }) {
        BMPFile file{.width = 1, .height = 1, .bitCount = 32, .compression = 3};
        for (const std::uint32_t word : {red, 0x0000FF00U, 0x000000FFU, 0x80FF0000U})
            append32(file.pixels, word);
        const auto cursor = CurDecoder::decode(curFile(cursorPicture(file.bytes())));
        ASSERT_TRUE(cursor);
        EXPECT_EQ(cursor->images[0].image.pixel({0, 0}), expected);
    }
}

TEST(CurDecoder, ReadsColoursAndMaskFromTheTopWhenTheHeightIsNegative)
{
    const BMPFile file{
        .width = 1, .height = -2, .pixels = {0, 0, 255, 0, 255, 0, 0, 0}
    };
    auto topDown = cursorPicture(file.bytes());
    const ByteBuffer mask{0x80, 0, 0, 0, 0, 0, 0, 0};
    support::append(topDown, mask);
    EXPECT_EQ(rowsOfOnly(curFile(topDown)), (Rows{".", "b"}));
}

TEST(CurDecoder, ReadsTheSmallestHeader)
{
    ByteBuffer core;
    append32(core, 12);
    for (const std::uint32_t field : {2U, 2U, 1U, 1U})
        support::append16(core, field);
    const ByteBuffer paletteColorsAndMask{0, 0, 0, 0, 0, 255, 0x40, 0, 0, 0, 0x80, 0, 0, 0};
    support::append(core, paletteColorsAndMask);
    EXPECT_EQ(rowsOfOnly(curFile(core)), Rows{".r"});
}

TEST(CurDecoder, ShowsWhatAMissingPartOfTheMaskWouldHide)
{
    const auto whole =
        cursorPicture(encodeBMP(picture({"rbr", "brb"}, legend), 24), {"#--", "#-#"});
    const std::pair<std::size_t, Rows> rows[] = {
        {0, {".br", ".r."}},
        {4, {"rbr", ".r."}}, // the upper row's comes last
        {7, {"rbr", ".r."}}, // a row's padding may be missing as well
        {8, {"rbr", "brb"}},
    };
    for (const auto& [missing, expected] : rows)
        EXPECT_EQ(rowsOfOnly(curFile(ByteView(whole).first(whole.size() - missing))), expected)
            << missing;
}

TEST(CurDecoder, ShowsInvertingPixelsInBlackAndOtherMaskedOnesNotAtAll)
{
    const Image colors = picture({"kwrb"}, legend);
    for (const int bitCount : {4, 8, 24, 32})
        EXPECT_EQ(rowsOfOnly(curFile(cursorPicture(encodeBMP(colors, bitCount), {"####"}))),
                  Rows{".k.."})
            << bitCount;
}

TEST(CurDecoder, BelievesAnUndoubledHeightWhenTheDirectoryAndTheBytesAgree)
{
    const ByteBuffer wide = plainBitmap(picture({"rr", "bb"}, legend));
    // So narrow that two rows of colours are as long as one of colours and one of mask.
    const ByteBuffer narrow = plainBitmap(picture({"r", "b"}, legend));
    const ByteBuffer tall = plainBitmap(solidImage({2, 256}, {255, 0, 0}));
    const std::tuple<ByteView, int, Rows> rows[] = {
        {wide, 2, {"rr", "bb"}},
        {wide, 1, {"bb"}}, // the lower row comes first
        {ByteView(wide).first(wide.size() - 1), 2, {"bb"}},
        {narrow, 2, {"b"}},
        {tall, 256, Rows(256, "rr")}, // which the directory calls 0
    };
    for (const auto& [bytes, statedHeight, expected] : rows) {
        const CurFile file{{{.picture = {bytes.begin(), bytes.end()}, .size = {1, statedHeight}}}};
        EXPECT_EQ(rowsOfOnly(file.bytes()), expected) << bytes.size() << " bytes";
    }
}

TEST(CurDecoder, ReadsPNGPicturesByTheirContent)
{
    auto pixels = PixelBuffer::transparent({3, 2});
    pixels.row(1)[2] = packPixel(0, 0, 128, 128);
    const Image image(std::move(pixels), Image::Alpha::any);
    const auto cursor = CurDecoder::decode(curFile(png(image), {1, 1}));
    ASSERT_TRUE(cursor);
    const CursorImage expected{
        image, Point{1, 1},
         32
    };
    EXPECT_EQ(cursor->images[0], expected);
}

TEST(CurDecoder, KeepsTheHotSpotInsideThePicture)
{
    const std::tuple<int, Point, Point> rows[] = {
        {2, {4, 2},     {4, 2}},
        {2, {5, 3},     {4, 2}},
        {2, {65535, 1}, {4, 1}},
        {1, {1, 24},    {2, 1}}, // an icon has planes and bits there
    };
    const auto data = cursorPicture(encodeBMP(solidImage({5, 3}, {9, 9, 9}), 24));
    for (const auto& [type, hotSpot, expected] : rows) {
        const CurFile file{{{.picture = data, .hotSpot = hotSpot}}, type};
        EXPECT_EQ(CurDecoder::decode(file.bytes())->images[0].hotSpot, expected) << hotSpot.x;
    }
}

TEST(CurDecoder, KeepsAllPicturesAndPrefersTheLargestThenTheDeepestThenTheFirst)
{
    const auto entry = [](Size size, std::uint8_t shade, int bitCount) {
        return support::CurEntry{
            .picture = cursorPicture(encodeBMP(solidImage(size, {shade, 8, 8}), bitCount)),
            .size = size};
    };
    const CurFile file{
        {entry({4, 4}, 8, 32), entry({4, 8}, 16, 1), entry({8, 4}, 24, 24), entry({5, 6}, 32, 32),
         entry({4, 8}, 40, 24)}
    };
    const auto cursor = CurDecoder::decode(file.bytes());
    ASSERT_TRUE(cursor);
    ASSERT_EQ(cursor->images.size(), 5U);
    EXPECT_EQ(cursor->images[3].image, solidImage({5, 6}, {32, 8, 8}));
    EXPECT_EQ(&cursor->best(), &cursor->images[2]);
}

TEST(CurDecoder, LeavesOutDamagedPicturesAndEntries)
{
    const auto good = cursorPicture(encodeBMP(picture({"r"}, legend), 24), {"-"});
    const support::CurEntry entry{.picture = good};
    const auto end = static_cast<std::uint32_t>(6 + 2 * 16 + good.size());
    const ByteBuffer pngSignature = support::bytes("\x89PNG\r\n\x1A\n");
    const std::pair<std::string_view, CurFile> rows[] = {
        {"an offset past the end",              {{{.offset = 0xFFFFFFFF}, entry}}                },
        {"an offset at the end",                {{entry, {.offset = end}}}                       },
        {"a picture of no bytes",               {{{.picture = {}}, entry}}                       },
        {"a picture that is none",              {{{.picture = ByteBuffer(50, 7)}, entry}}        },
        {"a PNG that ends after its signature", {{{.picture = pngSignature}, entry}}             },
        {"more entries than there are",         {{entry}, 2, 65535}                              },
        {"a picture longer than the file",      {{{.picture = good, .pictureBytes = 0xFFFFFFFF}}}},
    };
    for (const auto& [what, file] : rows)
        EXPECT_EQ(rowsOfOnly(file.bytes()), Rows{"r"}) << what;
}

TEST(CurDecoder, GivesNothingWhenNoPictureIsLeft)
{
    const auto good = cursorPicture(encodeBMP(picture({"r"}, legend), 24), {"-"});
    const auto altered = [&good](std::size_t offset, std::uint32_t value) {
        ByteBuffer bytes = good;
        support::put32(bytes, offset, value);
        return CurFile{{{.picture = bytes, .size = {1, 9}}}}.bytes();
    };
    ByteBuffer reserved = curFile(good);
    reserved[0] = 1;
    const std::pair<std::string_view, ByteBuffer> rows[] = {
        {"no bytes", {}},
        {"no entries", CurFile{}.bytes()},
        {"a type of neither", CurFile{{{.picture = good}}, 3}.bytes()},
        {"a first number that is not 0", reserved},
        {"a bitmap file", encodeBMP(picture({"r"}, legend), 24)},
        {"an unknown header", altered(0, 41)},
        {"a header of a size no bitmap has", altered(0, 44)},
        {"a header longer than the picture", altered(0, 108)},
        {"a width of 0", altered(4, 0)},
        {"a negative width", altered(4, 0xFFFFFFFF)},
        {"a height of 0", altered(8, 0)},
        {"the height of a mask without colours", altered(8, 1)},
        {"more rows than there are", altered(8, 6)},
        {"the least height", altered(8, 0x80000000)},
        {"an unknown depth", altered(12, 5 << 16 | 1)},
        {"run-length coding", altered(16, 1)},
        {"a side that is too large",
         curFile(cursorPicture(encodeBMP(solidImage({257, 1}, {1, 2, 3}), 24)))},
        {"the other side", curFile(cursorPicture(encodeBMP(solidImage({1, 257}, {1, 2, 3}), 24)))},
        {"a PNG that is too large", curFile(png(solidImage({257, 1}, {1, 2, 3})))},
    };
    for (const auto& [what, file] : rows)
        EXPECT_FALSE(CurDecoder::decode(file)) << what;
}

TEST(CurDecoder, LeavesOutImagesThatFindTooLittleMemory)
{
    const auto data = cursorPicture(encodeBMP(solidImage({256, 256}, {0, 0, 0}), 1));
    CurFile file{.entries = std::vector<support::CurEntry>(
                     140, {.picture = {}, .pictureBytes = data.size(), .offset = 6 + 16 * 140})};
    auto bytes = file.bytes();
    support::append(bytes, data);
    const auto cursor = CurDecoder::decode(bytes);
    ASSERT_TRUE(cursor);
    EXPECT_EQ(cursor->images.size(), 127U);
}

TEST(CurDecoder, ReadsNothingPastTheEndHoweverShortTheFileIsCut)
{
    const auto small = cursorPicture(encodeBMP(checkered, 8), corner);
    const CurFile file{
        {{.picture = small}, {.picture = png(checkered)}}
    };
    const auto whole = file.bytes();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const ByteBuffer part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        const auto cursor = CurDecoder::decode(part);
        EXPECT_TRUE(!cursor || cursor->images.size() == 1) << length;
    }
}
