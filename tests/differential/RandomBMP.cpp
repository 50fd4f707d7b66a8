#include "tests/differential/RandomBMP.h"

#include <cstdlib>

namespace differential {
namespace {

using support::append;
using support::append16;
using support::append32;
using support::ByteBuffer;

constexpr std::uint32_t coreBytes = 12;
constexpr int longestSide = 40;

std::size_t indexBytes(int count, int bitCount)
{
    return static_cast<std::size_t>((count * bitCount + 7) / 8);
}

// A stream of runs, absolute stretches and jumps, most of which stay in the picture.
ByteBuffer runs(const RandomBMP& file, Random& random)
{
    ByteBuffer stream;
    for (int line = 0; line < file.height; ++line) {
        for (int x = 0; x < file.width;) {
            const int left = file.width - x + (random.oneIn(8) ? 5 : 0);
            const int count = random.between(1, left);
            if (count >= 3 && random.oneIn(2)) {
                const auto indices = random.bytes(indexBytes(count, file.bitCount));
                stream.push_back(0);
                stream.push_back(static_cast<std::uint8_t>(count));
                append(stream, indices);
                if (indices.size() % 2 != 0)
                    stream.push_back(random.byte());
            } else if (random.oneIn(8)) {
                const auto down = static_cast<std::uint8_t>(random.oneIn(4));
                append(stream, ByteBuffer{0, 2, static_cast<std::uint8_t>(count), down});
            } else {
                stream.push_back(static_cast<std::uint8_t>(count));
                stream.push_back(random.byte());
            }
            x += count;
        }
        append(stream, ByteBuffer{0, 0});
    }
    if (random.oneIn(2))
        append(stream, ByteBuffer{0, 1});
    return stream;
}

// A mask as files have them, or one that no file should have.
std::uint32_t mask(Random& random)
{
    if (random.oneIn(4))
        return random.word();
    return ((1U << random.between(1, 10)) - 1) << random.between(0, 22);
}

}

RandomBMP::RandomBMP(Random& random, Kind kind)
{
    headerBytes = random.oneOf<std::uint32_t>({coreBytes, 40, 40, 40, 52, 56, 108, 124});
    width = random.between(1, longestSide);
    height = random.between(1, longestSide);
    bitCount = random.oneOf({1, 4, 8, 16, 24, 32});
    if (headerBytes != coreBytes) {
        if (kind == Kind::any && (bitCount == 4 || bitCount == 8) && random.oneIn(2))
            compression = bitCount == 8 ? 1 : 2;
        else if ((bitCount == 16 || bitCount == 32) && random.oneIn(2))
            compression = 3;
        const bool hasRuns = compression == 1 || compression == 2;
        if (!hasRuns && random.oneIn(3))
            height = -height;
    }

    // In a header of 52 bytes and more the masks stand where they do behind one of 40.
    if (compression == 3 && headerBytes == 40)
        for (int i = 0; i < 3; ++i)
            append32(afterHeader, mask(random));
    if (bitCount <= 8) {
        std::size_t entries = std::size_t{1} << bitCount;
        if (headerBytes != coreBytes && random.oneIn(2)) {
            colorsUsed = static_cast<std::uint32_t>(random.below(2 * entries));
            if (colorsUsed != 0 && colorsUsed < entries)
                entries = colorsUsed;
        }
        append(afterHeader, random.bytes(entries * (headerBytes == coreBytes ? 3 : 4)));
    }

    if (compression == 1 || compression == 2) {
        pixels = runs(*this, random);
    } else {
        const auto stride = (indexBytes(width, bitCount) + 3) / 4 * 4;
        pixels = random.bytes(stride * static_cast<std::size_t>(std::abs(height)));
    }
    const auto paletteEnd = static_cast<std::uint32_t>(14 + headerBytes + afterHeader.size());
    pixelOffset = random.oneIn(3) ? random.word() % 200 : paletteEnd;
    if (kind == Kind::any && random.oneIn(4)) {
        const auto gap = random.bytes(random.below(20));
        pixels.insert(pixels.begin(), gap.begin(), gap.end());
        pixelOffset = paletteEnd + static_cast<std::uint32_t>(gap.size());
    }
    resolutions_ = random.bytes(8);
    longHeader_ = random.bytes(headerBytes > 40 ? headerBytes - 40 : 0);
}

ByteBuffer RandomBMP::bytes() const
{
    ByteBuffer file = support::bytes("BM");
    append32(file, 0);
    append32(file, 0);
    append32(file, pixelOffset);
    append32(file, headerBytes);
    if (headerBytes == coreBytes) {
        append16(file, static_cast<std::uint32_t>(width));
        append16(file, static_cast<std::uint32_t>(height));
        append16(file, 1);
        append16(file, static_cast<std::uint32_t>(bitCount));
    } else {
        append32(file, static_cast<std::uint32_t>(width));
        append32(file, static_cast<std::uint32_t>(height));
        append16(file, 1);
        append16(file, static_cast<std::uint32_t>(bitCount));
        append32(file, compression);
        append32(file, 0);
        append(file, resolutions_);
        append32(file, colorsUsed);
        append32(file, 0);
        append(file, longHeader_);
    }
    append(file, afterHeader);
    append(file, pixels);
    return file;
}

}
