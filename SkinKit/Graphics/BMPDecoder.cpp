#include "SkinKit/Graphics/BMPDecoder.h"

#include "SkinKit/Base/ByteReader.h"
#include "SkinKit/Graphics/BMPHeader.h"
#include "SkinKit/Graphics/Simd.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

// A bitmap file:
//
//     0  "BM", file size, reserved        14 bytes; the pixels' offset at 10
//    14  header                           its size first: 12 (OS/2), 40, 52, 56, 108 or 124
//    54  red, green, blue masks           compression 3 only; inside the header when that is larger
//        palette                          blue, green, red (, reserved) each
//        pixels                           rows padded to 4 bytes, bottom row first unless the
//                                         height is negative
namespace SkinKit::BMPDecoder {
namespace {

constexpr std::int64_t fileHeaderBytes = 14;
constexpr std::int64_t pixelOffsetField = 10;
constexpr Pixel black = packPixel(0, 0, 0);

// What the checks have left: sides within their limits, a format that is known.
struct Picture {
    BMPHeader header;
    int width = 0;
    int rows = 0;
    bool isTopDown = false;
};

// Indices the file's palette lacks are black.
using Palette = std::array<Pixel, 256>;

// One row of the table of what may go together.
bool isKnownFormat(const BMPHeader& header)
{
    const bool isTopDown = header.height < 0;
    switch (header.compression) {
    case BMPHeader::uncompressed:
        return header.bitCount == 1 || header.bitCount == 4 || header.bitCount == 8 ||
               header.bitCount == 16 || header.bitCount == 24 || header.bitCount == 32;
    case BMPHeader::rle8: return header.bitCount == 8 && !isTopDown;
    case BMPHeader::rle4: return header.bitCount == 4 && !isTopDown;
    case BMPHeader::bitFields: return header.bitCount == 16 || header.bitCount == 32;
    default: return false;
    }
}

// `bytes` are the file's from the header on.
std::optional<Picture> readPicture(ByteView bytes)
{
    const auto header = BMPHeader::read(bytes);
    if (!header)
        return std::nullopt;
    const auto isSide = [](std::int64_t length) { return length >= 1 && length <= maxSide; };
    const std::int64_t rows = std::abs(header->height);
    if (!isSide(header->width) || !isSide(rows) || header->width * rows > maxPixels ||
        !isKnownFormat(*header))
        return std::nullopt;
    return Picture{*header, static_cast<int>(header->width), static_cast<int>(rows),
                   header->height < 0};
}

std::optional<Palette> readPalette(ByteView bytes, const BMPHeader& header)
{
    const auto entries = static_cast<std::size_t>(header.paletteEntries());
    const auto entryBytes = static_cast<std::size_t>(header.paletteEntryBytes());
    ByteReader reader(bytes, header.paletteOffset());
    const auto colors = reader.bytes(static_cast<std::int64_t>(entries * entryBytes));
    if (!colors)
        return std::nullopt;

    Palette palette;
    if (header.bitCount <= 8)
        palette.fill(black);
    for (std::size_t i = 0; i < entries; ++i) {
        const auto color = colors->subspan(i * entryBytes, 3);
        palette[i] = packPixel(color[2], color[1], color[0]);
    }
    return palette;
}

struct Masks {
    std::uint32_t red, green, blue;
};

constexpr Masks fiveBitMasks{0x7C00, 0x03E0, 0x001F};
constexpr Masks eightBitMasks{0x00FF0000, 0x0000FF00, 0x000000FF};

std::optional<Masks> readMasks(ByteView bytes, const BMPHeader& header)
{
    if (header.compression != BMPHeader::bitFields)
        return header.bitCount == 16 ? fiveBitMasks : eightBitMasks;
    ByteReader reader(bytes, BMPHeader::masksOffset);
    const auto red = reader.u32();
    const auto green = reader.u32();
    const auto blue = reader.u32();
    if (!blue)
        return std::nullopt;
    return Masks{*red, *green, *blue};
}

// The byte of a pixel that a channel is, where the mask is that of one byte or of none.
std::optional<std::uint8_t> byteOf(std::uint32_t mask)
{
    if (mask == 0)
        return Simd::ByteOrder::none;
    const int zeros = std::countr_zero(mask);
    return mask >> zeros == 0xFF && zeros % 8 == 0 ? std::optional<std::uint8_t>(zeros / 8)
                                                   : std::nullopt;
}

std::optional<Simd::ByteOrder> byteOrderOf(const Masks& masks)
{
    const auto red = byteOf(masks.red);
    const auto green = byteOf(masks.green);
    const auto blue = byteOf(masks.blue);
    if (!red || !green || !blue)
        return std::nullopt;
    return Simd::ByteOrder{*red, *green, *blue};
}

// A depth of 1 or 4 bits: the most significant bits of a byte are its first pixel.
template <int bitCount>
void decodePackedRow(const std::uint8_t* source, const Palette& palette, std::span<Pixel> target)
{
    constexpr int perByte = 8 / bitCount;
    constexpr unsigned mask = (1U << bitCount) - 1;
    Pixel* pixel = target.data();
    const auto whole = static_cast<std::ptrdiff_t>(target.size()) / perByte;
    for (std::ptrdiff_t i = 0; i < whole; ++i)
        for (int shift = 8 - bitCount; shift >= 0; shift -= bitCount)
            *pixel++ = palette[static_cast<unsigned>(source[i]) >> shift & mask];
    const auto rest = static_cast<int>(target.size() % perByte);
    for (int i = 1; i <= rest; ++i)
        *pixel++ = palette[static_cast<unsigned>(source[whole]) >> (8 - i * bitCount) & mask];
}

// What makes pixels of a row's bytes, worked out once for all rows.
class RowDecoder {
public:
    RowDecoder(int bitCount, const Palette& palette, const Masks& masks)
        : bitCount_(bitCount), palette_(palette),
          byteOrder_(bitCount >= 24 ? byteOrderOf(masks) : std::nullopt),
          fields_{Simd::BitField(masks.red), Simd::BitField(masks.green),
                  Simd::BitField(masks.blue)}
    {
    }

    void operator()(const std::uint8_t* source, std::span<Pixel> target) const
    {
        if (bitCount_ == 1)
            decodePackedRow<1>(source, palette_, target);
        else if (bitCount_ == 4)
            decodePackedRow<4>(source, palette_, target);
        else if (bitCount_ == 8)
            std::transform(source, source + target.size(), target.begin(),
                           [this](std::uint8_t index) { return palette_[index]; });
        else if (byteOrder_)
            Simd::expandBytes(source, target.data(), target.size(), bitCount_ / 8, *byteOrder_);
        else
            Simd::expandFields(source, target.data(), target.size(), bitCount_ / 8, fields_);
    }

private:
    int bitCount_;
    const Palette& palette_;
    std::optional<Simd::ByteOrder> byteOrder_;
    Simd::BitFields fields_;
};

std::optional<Image> decodeRows(ByteView bytes, std::int64_t start, const Picture& picture,
                                const Palette& palette, const Masks& masks)
{
    const int bitCount = picture.header.bitCount;
    const std::int64_t stride = BMPHeader::rowStride(picture.width, bitCount);
    if (std::ssize(bytes) < start + stride * picture.rows)
        return std::nullopt;

    const RowDecoder decodeRow(bitCount, palette, masks);
    auto pixels = PixelBuffer::uninitialized({picture.width, picture.rows});
    for (int row = 0; row < picture.rows; ++row)
        decodeRow(bytes.data() + start + row * stride,
                  pixels.row(picture.isTopDown ? row : picture.rows - 1 - row));
    return Image(std::move(pixels), Image::Alpha::opaque);
}

// Writes runs into the raster; what falls outside is dropped, lines never wrap.
class RunPlotter {
public:
    RunPlotter(PixelBuffer& pixels, const Palette& palette, bool isRLE4)
        : pixels_(pixels), palette_(palette), isRLE4_(isRLE4)
    {
    }

    bool isBelowImage() const { return y_ >= pixels_.size().height; }

    void endLine()
    {
        ++y_;
        x_ = 0;
    }
    void move(std::int64_t dx, std::int64_t dy)
    {
        x_ += dx;
        y_ += dy;
    }
    // `count` pixels of one colour, or with RLE4 of two in turn.
    void encodedRun(std::size_t count, std::uint8_t value)
    {
        const auto target = take(count);
        if (!isRLE4_) {
            std::ranges::fill(target, palette_[value]);
            return;
        }
        const Pixel nibbles[] = {palette_[value >> 4], palette_[value & 0xF]};
        for (std::size_t i = 0; i < target.size(); ++i)
            target[i] = nibbles[i % 2];
    }
    void absoluteRun(std::size_t count, ByteView values)
    {
        const auto target = take(count);
        for (std::size_t i = 0; i < target.size(); ++i)
            target[i] = palette_[isRLE4_ ? values[i / 2] >> (i % 2 == 0 ? 4 : 0) & 0xF : values[i]];
    }

private:
    // The part of the next `count` pixels that lies in the image.
    std::span<Pixel> take(std::size_t count)
    {
        const auto begin = static_cast<std::size_t>(x_);
        x_ += static_cast<std::int64_t>(count);
        const auto [width, height] = pixels_.size();
        const auto inRow = static_cast<std::size_t>(width);
        if (begin >= inRow)
            return {};
        return pixels_.row(height - 1 - static_cast<int>(y_))
            .subspan(begin, std::min(count, inRow - begin));
    }

    PixelBuffer& pixels_;
    const Palette& palette_;
    bool isRLE4_;
    std::int64_t x_ = 0;
    std::int64_t y_ = 0; // 0 is the bottom line; always inside the image when a run is plotted
};

// Two bytes at a time: a count and a value, or 0 and what to do instead. The stream must say where
// it ends, unless it leaves the picture.
bool decodeRuns(ByteReader& reader, RunPlotter& plotter, bool isRLE4)
{
    enum : std::uint8_t { endOfLine = 0, endOfBitmap = 1, delta = 2 };
    while (!plotter.isBelowImage()) {
        const auto pair = reader.bytes(2);
        if (!pair)
            return false;
        const std::uint8_t count = (*pair)[0];
        const std::uint8_t value = (*pair)[1];

        if (count > 0) {
            plotter.encodedRun(count, value);
        } else if (value == endOfBitmap) {
            return true;
        } else if (value == endOfLine) {
            plotter.endLine();
        } else if (value == delta) {
            const auto distance = reader.bytes(2);
            if (!distance)
                return false;
            plotter.move((*distance)[0], (*distance)[1]);
        } else {
            const std::int64_t runBytes = isRLE4 ? (value + 1) / 2 : value;
            const auto run = reader.bytes(runBytes);
            if (!run)
                return false;
            plotter.absoluteRun(value, *run);
            if (runBytes % 2 != 0 && reader.remaining() > 0)
                reader.bytes(1);
        }
    }
    return true;
}

std::optional<Image> decodeRLE(ByteView bytes, std::int64_t start, const Picture& picture,
                               const Palette& palette)
{
    auto pixels = PixelBuffer::uninitialized({picture.width, picture.rows});
    std::fill_n(pixels.data(), pixels.count(), palette[0]);
    ByteReader reader(bytes, start);
    const bool isRLE4 = picture.header.compression == BMPHeader::rle4;
    RunPlotter plotter(pixels, palette, isRLE4);
    if (!decodeRuns(reader, plotter, isRLE4))
        return std::nullopt;
    return Image(std::move(pixels), Image::Alpha::opaque);
}

}

std::optional<Image> decode(ByteView file)
{
    ByteReader reader(file, pixelOffsetField);
    const auto pixelOffset = reader.u32();
    if (!pixelOffset || file[0] != 'B' || file[1] != 'M')
        return std::nullopt;

    // From here on offsets count from the header.
    const ByteView bytes = file.subspan(fileHeaderBytes);
    const auto picture = readPicture(bytes);
    if (!picture)
        return std::nullopt;
    const BMPHeader& header = picture->header;
    const auto masks = readMasks(bytes, header);
    const auto palette = readPalette(bytes, header);
    if (!masks || !palette)
        return std::nullopt;

    // An offset that points into the header or past the end is wrong; the pixels follow the
    // palette.
    const std::int64_t stated = std::int64_t{*pixelOffset} - fileHeaderBytes;
    const bool isGood = stated >= header.paletteEnd() && stated < std::ssize(bytes);
    const std::int64_t start = isGood ? stated : header.paletteEnd();
    if (header.compression == BMPHeader::rle8 || header.compression == BMPHeader::rle4)
        return decodeRLE(bytes, start, *picture, *palette);
    return decodeRows(bytes, start, *picture, *palette, *masks);
}

}
