#include "SkinKit/Formats/CursorPicture.h"

#include "SkinKit/Base/ByteReader.h"
#include "SkinKit/Graphics/BMPDecoder.h"
#include "SkinKit/Graphics/BMPHeader.h"
#include "SkinKit/Graphics/PNGCodec.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <string_view>
#include <utility>

// A bitmap in a cursor:
//
//     0  header       as in a bitmap file, its height that of colours and mask together
//        masks        red, green, blue; compression 3 only
//        palette
//        colours      rows padded to 4 bytes, bottom row first unless the height is negative
//        mask         rows likewise; a set bit leaves the screen, or inverts it where the colour
//                     is white
namespace SkinKit::CursorPicture {
namespace {

constexpr std::string_view pngSignature = "\x89PNG\r\n\x1A\n";
constexpr std::int64_t pngFirstChunk = 12; // its name, and right behind that the size

// Its pixel offset of 0 makes the bitmap decoder look right after the palette.
constexpr std::array<std::uint8_t, 14> fileHeader{'B', 'M'};
constexpr Pixel black = packPixel(0, 0, 0);
constexpr Pixel white = packPixel(255, 255, 255);

bool isSide(std::int64_t length)
{
    return length >= 1 && length <= maxSide;
}

// What a picture takes: its pixels, and what belongs to it beside them.
std::int64_t memoryOf(Size size)
{
    constexpr std::int64_t besidePixels = 256;
    return besidePixels + std::int64_t{size.width} * size.height * std::int64_t{sizeof(Pixel)};
}

CursorImage centred(Image image, int bitCount)
{
    const Point middle{image.width() / 2, image.height() / 2};
    return {std::move(image), middle, bitCount};
}

int channelCount(unsigned pngColorType)
{
    enum : unsigned { rgb = 2, grayAlpha = 4, rgba = 6 };
    switch (pngColorType) {
    case rgb: return 3;
    case grayAlpha: return 2;
    case rgba: return 4;
    default: return 1;
    }
}

std::optional<CursorImage> decodePNG(ByteView bytes, LoadMeter& meter)
{
    ByteReader reader(bytes, pngFirstChunk);
    const auto name = reader.bytes(4);
    if (!name || asText(*name) != "IHDR")
        return std::nullopt;
    const std::int64_t width = std::byteswap(reader.u32().value_or(0));
    const std::int64_t height = std::byteswap(reader.u32().value_or(0));
    const auto depthAndType = reader.bytes(2);
    if (!depthAndType || !isSide(width) || !isSide(height))
        return std::nullopt;
    const Size size{static_cast<int>(width), static_cast<int>(height)};
    if (!meter.take(memoryOf(size)))
        return std::nullopt;

    auto image = PNGCodec::decode(bytes, {maxSide, std::int64_t{maxSide} * maxSide}, meter);
    if (!image) {
        meter.giveBack(memoryOf(size));
        return std::nullopt;
    }
    return centred(std::move(*image), (*depthAndType)[0] * channelCount((*depthAndType)[1]));
}

// Where things lie in a bitmap. Offsets are in the picture's bytes.
struct Layout {
    BMPHeader header;
    int width = 0;
    int rows = 0;

    bool isTopDown() const { return header.height < 0; }
    std::int64_t colorsOffset() const { return header.paletteEnd(); }
    std::int64_t colorStride() const { return BMPHeader::rowStride(width, header.bitCount); }
    std::int64_t maskStride() const { return BMPHeader::rowStride(width, 1); }
    std::int64_t maskOffset() const { return colorsOffset() + colorStride() * rows; }
};

// The rows of a height that usually counts the mask's too.
std::int64_t rowsOf(std::int64_t height, std::int64_t statedHeight, const Layout& layout,
                    std::int64_t byteCount)
{
    const std::int64_t both = (layout.colorStride() + layout.maskStride()) * (height / 2);
    const std::int64_t present = byteCount - layout.colorsOffset();
    const bool isPlain =
        height == statedHeight && present >= layout.colorStride() * height && present > both;
    return isPlain ? height : height / 2;
}

// Reads what the colours' place depends on. Whether the header makes sense otherwise is left to the
// bitmap decoder.
std::optional<Layout> readLayout(ByteView bytes, std::int64_t statedHeight)
{
    const auto header = BMPHeader::read(bytes);
    if (!header || !isSide(header->width) || header->bitCount > 32 ||
        (header->compression != BMPHeader::uncompressed &&
         header->compression != BMPHeader::bitFields))
        return std::nullopt;

    Layout layout{*header, static_cast<int>(header->width), 0};
    const auto rows = rowsOf(std::abs(header->height), statedHeight, layout, std::ssize(bytes));
    if (!isSide(rows))
        return std::nullopt;
    layout.rows = static_cast<int>(rows);
    return layout;
}

// The picture up to its mask as the bitmap file it would be.
ByteBuffer bitmapFile(ByteView bytes, const Layout& layout)
{
    const auto picture = bytes.first(static_cast<std::size_t>(layout.maskOffset()));
    ByteBuffer file;
    file.reserve(fileHeader.size() + picture.size());
    file.insert(file.end(), fileHeader.begin(), fileHeader.end());
    file.insert(file.end(), picture.begin(), picture.end());

    const bool isCore = layout.header.isCore();
    const auto height = static_cast<std::uint32_t>(layout.isTopDown() ? -layout.rows : layout.rows);
    const std::size_t heightOffset = fileHeader.size() + (isCore ? 6 : 8);
    for (std::size_t i = 0; i < (isCore ? 2U : 4U); ++i)
        file[heightOffset + i] = static_cast<std::uint8_t>(height >> (8 * i));
    return file;
}

// A picture made from `colors` pixel by pixel; `convert` gets the colour, and row and column where
// the file has them.
template <typename Convert>
Image converted(const Image& colors, const Layout& layout, const Convert& convert)
{
    auto pixels = PixelBuffer::uninitialized(colors.size());
    bool isOpaque = true;
    for (int y = 0; y < layout.rows; ++y) {
        const int row = layout.isTopDown() ? y : layout.rows - 1 - y;
        const auto source = colors.row(y);
        const auto target = pixels.row(y);
        for (std::size_t x = 0; x < target.size(); ++x) {
            target[x] = convert(source[x], row, x);
            isOpaque = isOpaque && alphaOf(target[x]) == 255;
        }
    }
    return {std::move(pixels), isOpaque ? Image::Alpha::opaque : Image::Alpha::any};
}

// Whether pixels have a fourth byte that belongs to no colour.
bool hasAlphaByte(ByteView bytes, const Layout& layout)
{
    if (layout.header.bitCount != 32 || layout.header.compression == BMPHeader::uncompressed)
        return layout.header.bitCount == 32;
    const auto masks = bytes.subspan(BMPHeader::masksOffset, BMPHeader::masksBytes);
    return masks[3] == 0 && masks[7] == 0 && masks[11] == 0;
}

// The colours with their alpha; nothing when that is zero throughout.
std::optional<Image> withAlpha(const Image& colors, const Layout& layout, ByteView plane)
{
    unsigned any = 0;
    for (std::size_t i = 3; i < plane.size(); i += 4)
        any |= plane[i];
    if (any == 0)
        return std::nullopt;

    const auto perRow = static_cast<std::size_t>(layout.width);
    return converted(colors, layout, [&](Pixel color, int row, std::size_t x) {
        const Pixel alpha = plane[(static_cast<std::size_t>(row) * perRow + x) * 4 + 3];
        return premultiply((color & 0x00FFFFFF) | alpha << 24);
    });
}

Image withMask(const Image& colors, const Layout& layout, ByteView mask)
{
    const auto stride = static_cast<std::size_t>(layout.maskStride());
    return converted(colors, layout, [&](Pixel color, int row, std::size_t x) {
        const std::size_t place = static_cast<std::size_t>(row) * stride + x / 8;
        const bool isMasked = place < mask.size() && (mask[place] << x % 8 & 0x80) != 0;
        if (!isMasked)
            return color;
        // No raster can invert the screen. Left out, the pointer of a text field would vanish; so
        // it shows as it does over a white one.
        return color == white ? black : transparentPixel;
    });
}

std::optional<CursorImage> decodeBitmap(ByteView bytes, std::int64_t statedHeight, LoadMeter& meter)
{
    const auto layout = readLayout(bytes, statedHeight);
    if (!layout || layout->maskOffset() > std::ssize(bytes) ||
        !meter.hasTimeAfter(layout->maskOffset()))
        return std::nullopt;
    const std::int64_t memory = memoryOf({layout->width, layout->rows});
    if (!meter.take(memory))
        return std::nullopt;
    const auto colors = BMPDecoder::decode(bitmapFile(bytes, *layout));
    if (!colors) {
        meter.giveBack(memory);
        return std::nullopt;
    }

    const auto maskOffset = static_cast<std::size_t>(layout->maskOffset());
    const auto plane =
        bytes.first(maskOffset).subspan(static_cast<std::size_t>(layout->colorsOffset()));
    auto image = hasAlphaByte(bytes, *layout) ? withAlpha(*colors, *layout, plane) : std::nullopt;
    if (!image)
        image = withMask(*colors, *layout, bytes.subspan(maskOffset));
    return centred(std::move(*image), layout->header.bitCount);
}

}

std::optional<CursorImage> decode(ByteView bytes, std::int64_t statedHeight, LoadMeter& meter)
{
    if (asText(bytes).starts_with(pngSignature))
        return decodePNG(bytes, meter);
    return decodeBitmap(bytes, statedHeight, meter);
}

}
