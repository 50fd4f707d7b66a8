#include "tests/differential/RandomBMP.h"

#include <cstdlib>

namespace differential {
namespace {

using support::append;
using support::ByteBuffer;

constexpr int maxSide = 40;

std::size_t indexBytes(int count, int bitCount)
{
    return static_cast<std::size_t>((count * bitCount + 7) / 8);
}

// A stream of runs, absolute runs and jumps, most of which stay in the image.
ByteBuffer runs(const support::BMPFile& file, Random& random)
{
    ByteBuffer stream;
    for (int line = 0; line < file.height; ++line) {
        for (int x = 0; x < file.width;) {
            const int count = random.between(1, file.width - x + (random.oneIn(8) ? 5 : 0));
            const auto length = static_cast<std::uint8_t>(count);
            if (count >= 3 && random.oneIn(2)) {
                const auto indices = random.bytes(indexBytes(count, file.bitCount));
                append(stream, ByteBuffer{0, length});
                append(stream, indices);
                stream.resize(stream.size() + indices.size() % 2, 0);
            } else if (random.oneIn(8)) {
                append(stream, ByteBuffer{0, 2, length, std::uint8_t{random.oneIn(4)}});
            } else {
                append(stream, ByteBuffer{length, random.byte()});
            }
            x += count;
        }
        append(stream, ByteBuffer{0, 0});
    }
    if (random.oneIn(2))
        append(stream, ByteBuffer{0, 1});
    return stream;
}

// A mask as files have them, or any bits at all.
std::uint32_t mask(Random& random)
{
    if (random.oneIn(4))
        return random.word();
    return ((1U << random.between(1, 10)) - 1) << random.between(0, 22);
}

void addPalette(support::BMPFile& file, Random& random)
{
    std::size_t entries = std::size_t{1} << file.bitCount;
    if (file.headerBytes != 12 && random.oneIn(2)) {
        file.colorsUsed = static_cast<std::uint32_t>(random.below(2 * entries));
        if (file.colorsUsed != 0 && file.colorsUsed < entries)
            entries = file.colorsUsed;
    }
    for (; entries > 0; --entries)
        file.palette.push_back(SkinKit::rgb(random.word()));
}

}

support::BMPFile randomBMP(Random& random, BMPKind kind)
{
    support::BMPFile file{.headerBytes =
                              random.oneOf<std::uint32_t>({12, 40, 40, 40, 52, 56, 108, 124}),
                          .width = random.between(1, maxSide),
                          .height = random.between(1, maxSide),
                          .bitCount = random.oneOf({1, 4, 8, 16, 24, 32})};
    const bool mayHaveRuns = kind == BMPKind::any && (file.bitCount == 4 || file.bitCount == 8);
    if (file.headerBytes != 12 && random.oneIn(2)) {
        if (mayHaveRuns)
            file.compression = file.bitCount == 8 ? 1 : 2;
        else if (file.bitCount == 16 || file.bitCount == 32)
            file.compression = 3;
    }
    const bool hasRuns = file.compression == 1 || file.compression == 2;
    if (file.headerBytes != 12 && !hasRuns && random.oneIn(3))
        file.height = -file.height;
    if (file.compression == 3)
        file.masks = {mask(random), mask(random), mask(random)};
    if (file.bitCount <= 8)
        addPalette(file, random);

    const auto stride = (indexBytes(file.width, file.bitCount) + 3) / 4 * 4;
    file.pixels = hasRuns ? runs(file, random)
                          : random.bytes(stride * static_cast<std::size_t>(std::abs(file.height)));
    if (random.oneIn(3))
        file.pixelOffset = random.word() % 200;
    if (kind == BMPKind::any && random.oneIn(4)) {
        const auto gap = random.bytes(random.below(20));
        const auto paletteEnd = file.bytes().size() - file.pixels.size();
        file.pixelOffset = static_cast<std::uint32_t>(paletteEnd + gap.size());
        file.pixels.insert(file.pixels.begin(), gap.begin(), gap.end());
    }
    return file;
}

}
