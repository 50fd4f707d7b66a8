#include "tests/support/BMPWriter.h"

#include <algorithm>
#include <stdexcept>

namespace support {
namespace {

using SkinKit::Image;
using SkinKit::Pixel;
using SkinKit::RGBColor;

RGBColor colorOf(Pixel pixel)
{
    return {static_cast<std::uint8_t>(SkinKit::redOf(pixel)),
            static_cast<std::uint8_t>(SkinKit::greenOf(pixel)),
            static_cast<std::uint8_t>(SkinKit::blueOf(pixel))};
}

// The picture's palette and, row by row from the top, its indices.
struct Indexed {
    std::vector<RGBColor> palette;
    std::vector<std::vector<std::uint8_t>> rows;
};

Indexed index(const Image& image, int bitCount)
{
    Indexed indexed;
    for (int y = 0; y < image.height(); ++y) {
        auto& row = indexed.rows.emplace_back();
        for (const Pixel pixel : image.row(y)) {
            const auto color = colorOf(pixel);
            auto found = std::ranges::find(indexed.palette, color);
            if (found == indexed.palette.end())
                found = indexed.palette.insert(found, color);
            row.push_back(static_cast<std::uint8_t>(found - indexed.palette.begin()));
        }
    }
    if (indexed.palette.size() > std::size_t{1} << bitCount)
        throw std::invalid_argument("too many colours for the depth");
    return indexed;
}

void padRow(ByteBuffer& pixels, std::size_t rowStart)
{
    while ((pixels.size() - rowStart) % 4 != 0)
        pixels.push_back(0);
}

void appendIndices(ByteBuffer& pixels, const std::vector<std::uint8_t>& row, int bitCount)
{
    const auto perByte = static_cast<std::size_t>(8 / bitCount);
    for (std::size_t x = 0; x < row.size(); x += perByte) {
        unsigned byte = 0;
        for (std::size_t i = 0; i < perByte; ++i)
            byte = byte << bitCount | (x + i < row.size() ? row[x + i] : 0U);
        pixels.push_back(static_cast<std::uint8_t>(byte));
    }
}

void appendColor(ByteBuffer& pixels, RGBColor color, int bitCount)
{
    if (bitCount == 16) {
        append16(pixels, static_cast<std::uint32_t>(color.red >> 3 << 10 | color.green >> 3 << 5 |
                                                    color.blue >> 3));
        return;
    }
    pixels.insert(pixels.end(), {color.blue, color.green, color.red});
    if (bitCount == 32)
        pixels.push_back(0);
}

std::size_t runLength(const std::vector<std::uint8_t>& row, std::size_t from)
{
    std::size_t end = from + 1;
    while (end < row.size() && row[end] == row[from] && end - from < 255)
        ++end;
    return end - from;
}

void appendAbsolute(ByteBuffer& pixels, const std::vector<std::uint8_t>& part, int bitCount)
{
    pixels.insert(pixels.end(), {0, static_cast<std::uint8_t>(part.size())});
    const std::size_t start = pixels.size();
    appendIndices(pixels, part, bitCount);
    if ((pixels.size() - start) % 2 != 0)
        pixels.push_back(0);
}

void appendRuns(ByteBuffer& pixels, const std::vector<std::uint8_t>& row, int bitCount)
{
    constexpr std::size_t longestAbsolute = 255;
    for (std::size_t x = 0; x < row.size();) {
        const std::size_t length = runLength(row, x);
        std::size_t fresh = 0; // pixels from x on that repeat nothing
        while (x + fresh < row.size() && fresh < longestAbsolute && runLength(row, x + fresh) < 3)
            ++fresh;
        if (fresh >= 3) {
            const auto begin = row.begin() + static_cast<std::ptrdiff_t>(x);
            appendAbsolute(pixels, {begin, begin + static_cast<std::ptrdiff_t>(fresh)}, bitCount);
            x += fresh;
        } else {
            const unsigned value = row[x] * (bitCount == 4 ? 0x11U : 1U);
            pixels.insert(pixels.end(),
                          {static_cast<std::uint8_t>(length), static_cast<std::uint8_t>(value)});
            x += length;
        }
    }
}

}

ByteBuffer BMPFile::bytes() const
{
    ByteBuffer file = support::bytes("BM");
    file.resize(14 + headerBytes + (headerBytes == 40 ? 4 * masks.size() : 0), 0);
    put32(file, 14, headerBytes);
    if (headerBytes == 12) {
        put16(file, 18, static_cast<std::uint32_t>(width));
        put16(file, 20, static_cast<std::uint32_t>(height));
        put16(file, 22, 1);
        put16(file, 24, static_cast<std::uint32_t>(bitCount));
    } else {
        put32(file, 18, static_cast<std::uint32_t>(width));
        put32(file, 22, static_cast<std::uint32_t>(height));
        put16(file, 26, 1);
        put16(file, 28, static_cast<std::uint32_t>(bitCount));
        put32(file, 30, compression);
        put32(file, 34, static_cast<std::uint32_t>(pixels.size()));
        put32(file, 38, 2835);
        put32(file, 42, 2835);
        put32(file, 46, colorsUsed);
    }
    for (std::size_t i = 0; i < masks.size(); ++i)
        put32(file, 54 + 4 * i, masks[i]);
    for (const RGBColor& color : palette) {
        file.insert(file.end(), {color.blue, color.green, color.red});
        if (headerBytes != 12)
            file.push_back(0);
    }
    put32(file, 10, pixelOffset.value_or(static_cast<std::uint32_t>(file.size())));
    append(file, pixels);
    put32(file, 2, static_cast<std::uint32_t>(file.size()));
    return file;
}

ByteBuffer encodeBMP(const Image& image, int bitCount)
{
    BMPFile file{.width = image.width(), .height = image.height(), .bitCount = bitCount};
    Indexed indexed;
    if (bitCount <= 8) {
        indexed = index(image, bitCount);
        file.palette = indexed.palette;
        file.colorsUsed = static_cast<std::uint32_t>(indexed.palette.size());
    }
    for (int y = image.height() - 1; y >= 0; --y) {
        const std::size_t rowStart = file.pixels.size();
        if (bitCount <= 8)
            appendIndices(file.pixels, indexed.rows[static_cast<std::size_t>(y)], bitCount);
        else
            for (const Pixel pixel : image.row(y))
                appendColor(file.pixels, colorOf(pixel), bitCount);
        padRow(file.pixels, rowStart);
    }
    return file.bytes();
}

ByteBuffer encodeRLE(const Image& image, int bitCount)
{
    const Indexed indexed = index(image, bitCount);
    BMPFile file{.width = image.width(),
                 .height = image.height(),
                 .bitCount = bitCount,
                 .compression = bitCount == 8 ? 1U : 2U,
                 .colorsUsed = static_cast<std::uint32_t>(indexed.palette.size()),
                 .palette = indexed.palette,
                 .pixels = {}};
    for (auto row = indexed.rows.rbegin(); row != indexed.rows.rend(); ++row) {
        appendRuns(file.pixels, *row, bitCount);
        file.pixels.insert(file.pixels.end(), {0, 0});
    }
    file.pixels.insert(file.pixels.end(), {0, 1});
    return file.bytes();
}

Image solidImage(SkinKit::Size size, RGBColor color)
{
    auto pixels = SkinKit::PixelBuffer::uninitialized(size);
    std::fill_n(pixels.data(), pixels.count(), SkinKit::opaquePixel(color));
    return {std::move(pixels), Image::Alpha::opaque};
}

}
