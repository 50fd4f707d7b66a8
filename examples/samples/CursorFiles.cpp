#include "examples/samples/CursorFiles.h"

#include "tests/support/Bytes.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace samples {
namespace {

using SkinKit::ByteBuffer;
using SkinKit::Pixel;
using support::append32;

void padTo32Bits(ByteBuffer& rows)
{
    while (rows.size() % 4 != 0)
        rows.push_back(0);
}

bool shows(Pixel pixel)
{
    return SkinKit::alphaOf(pixel) >= 128;
}

std::vector<Pixel> paletteOf(const Image& image, int bitCount)
{
    std::vector<Pixel> palette{SkinKit::packPixel(0, 0, 0)}; // black below what does not show
    for (int y = 0; y < image.height(); ++y)
        for (const Pixel pixel : image.row(y))
            if (shows(pixel) && std::ranges::find(palette, pixel) == palette.end())
                palette.push_back(pixel);
    if (palette.size() > std::size_t{1} << bitCount)
        throw std::invalid_argument("too many colours for the depth");
    palette.resize(std::size_t{1} << bitCount, SkinKit::packPixel(0, 0, 0));
    return palette;
}

void appendBGR(ByteBuffer& target, Pixel pixel, unsigned fourth)
{
    for (const unsigned byte :
         {SkinKit::blueOf(pixel), SkinKit::greenOf(pixel), SkinKit::redOf(pixel), fourth})
        target.push_back(static_cast<std::uint8_t>(byte));
}

void appendIndices(ByteBuffer& target, std::span<const Pixel> row,
                   const std::vector<Pixel>& palette, int bitCount)
{
    unsigned byte = 0;
    int bits = 0;
    for (const Pixel pixel : row) {
        const auto index = shows(pixel) ? std::ranges::find(palette, pixel) - palette.begin() : 0;
        byte = byte << bitCount | static_cast<unsigned>(index);
        bits += bitCount;
        if (bits == 8) {
            target.push_back(static_cast<std::uint8_t>(byte));
            byte = 0;
            bits = 0;
        }
    }
    padTo32Bits(target);
}

// The mask, lowest row first: a set bit for each pixel that does not show.
void appendMask(ByteBuffer& target, const Image& image)
{
    for (int y = image.height() - 1; y >= 0; --y) {
        unsigned byte = 0;
        for (int x = 0; x < image.width(); ++x) {
            byte = byte << 1 | (shows(image.pixel({x, y})) ? 0 : 1);
            if (x % 8 == 7)
                target.push_back(static_cast<std::uint8_t>(byte));
        }
        padTo32Bits(target);
    }
}

// The pointer's picture as a bitmap without file header, of twice its height: colours, then mask.
ByteBuffer bitmapOf(const Image& image, int bitCount)
{
    // Compression and what follows it stay zero.
    constexpr std::uint32_t headerSize = 40;
    ByteBuffer header(headerSize, 0);
    support::put32(header, 0, headerSize);
    support::put32(header, 4, static_cast<std::uint32_t>(image.width()));
    support::put32(header, 8, static_cast<std::uint32_t>(2 * image.height()));
    support::put16(header, 12, 1);
    support::put16(header, 14, static_cast<std::uint32_t>(bitCount));

    ByteBuffer pixels;
    if (bitCount == 32) {
        for (int y = image.height() - 1; y >= 0; --y)
            for (const Pixel pixel : image.row(y))
                appendBGR(pixels, SkinKit::unpremultiply(pixel), SkinKit::alphaOf(pixel));
    } else {
        const auto palette = paletteOf(image, bitCount);
        for (const Pixel color : palette)
            appendBGR(header, color, 0);
        for (int y = image.height() - 1; y >= 0; --y)
            appendIndices(pixels, image.row(y), palette, bitCount);
    }
    appendMask(pixels, image);
    support::append(header, pixels);
    return header;
}

void appendChunk(ByteBuffer& target, std::string_view name, const ByteBuffer& content)
{
    support::append(target, SkinKit::asBytes(name));
    append32(target, static_cast<std::uint32_t>(content.size()));
    support::append(target, content);
    if (content.size() % 2 != 0)
        target.push_back(0);
}

}

ByteBuffer encodeCursor(const Cursor& cursor, int bitCount)
{
    constexpr std::uint32_t isPointer = 2;
    constexpr std::uint32_t directorySize = 6 + 16;
    const auto bitmap = bitmapOf(cursor.image, bitCount);
    ByteBuffer file(directorySize, 0);
    support::put16(file, 2, isPointer);
    support::put16(file, 4, 1);
    file[6] = static_cast<std::uint8_t>(cursor.image.width());
    file[7] = static_cast<std::uint8_t>(cursor.image.height());
    file[8] = bitCount == 1 ? 2 : 0; // colours, where a byte can say it
    support::put16(file, 10, static_cast<std::uint32_t>(cursor.hotSpot.x));
    support::put16(file, 12, static_cast<std::uint32_t>(cursor.hotSpot.y));
    support::put32(file, 14, static_cast<std::uint32_t>(bitmap.size()));
    support::put32(file, 18, directorySize);
    support::append(file, bitmap);
    return file;
}

ByteBuffer encodeAnimatedCursor(std::span<const Cursor> frames, std::span<const CursorStep> steps,
                                int bitCount)
{
    constexpr std::uint32_t headerSize = 36;
    constexpr std::uint32_t framesAreCursors = 1;
    constexpr std::uint32_t hasSequence = 2;
    ByteBuffer header(headerSize, 0); // sizes and depth stand in the frames
    support::put32(header, 0, headerSize);
    support::put32(header, 4, static_cast<std::uint32_t>(frames.size()));
    support::put32(header, 8, static_cast<std::uint32_t>(steps.size()));
    support::put32(header, 28, steps.front().duration);
    support::put32(header, 32, framesAreCursors | hasSequence);

    ByteBuffer rates;
    ByteBuffer sequence;
    for (const auto& step : steps) {
        append32(rates, step.duration);
        append32(sequence, step.frame);
    }
    ByteBuffer list = support::bytes("fram");
    for (const auto& frame : frames)
        appendChunk(list, "icon", encodeCursor(frame, bitCount));

    ByteBuffer content = support::bytes("ACON");
    appendChunk(content, "anih", header);
    appendChunk(content, "rate", rates);
    appendChunk(content, "seq ", sequence);
    appendChunk(content, "LIST", list);
    ByteBuffer file;
    appendChunk(file, "RIFF", content);
    return file;
}

}
