#include "SkinKit/Formats/CurDecoder.h"
#include "SkinKit/Graphics/PNGCodec.h"
#include "tests/support/CursorWriter.h"
#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

#include <string>

// Colours, alpha and masks are compared with another decoder in tests/differential.
using namespace SkinKit;
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
