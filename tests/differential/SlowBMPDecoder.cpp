#include "tests/differential/SlowBMPDecoder.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <utility>
#include <vector>

namespace differential {
namespace {

using SkinKit::Image;
using SkinKit::Pixel;
using support::ByteView;

// Thrown wherever a file turns out to be none that can be shown.
struct NoPicture {};

struct Bytes {
    ByteView file;

    std::int64_t size() const { return std::ssize(file); }
    std::uint64_t at(std::int64_t offset) const
    {
        if (offset < 0 || offset >= size())
            throw NoPicture();
        return file[static_cast<std::size_t>(offset)];
    }
    std::uint64_t number(std::int64_t offset, int byteCount) const
    {
        std::uint64_t value = 0;
        for (int i = byteCount - 1; i >= 0; --i)
            value = value * 256 + at(offset + i);
        return value;
    }
    std::int64_t signed32(std::int64_t offset) const
    {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(number(offset, 4)));
    }
};

void require(bool holds)
{
    if (!holds)
        throw NoPicture();
}

bool isOneOf(std::int64_t value, std::initializer_list<std::int64_t> values)
{
    for (const auto known : values)
        if (known == value)
            return true;
    return false;
}

constexpr Pixel black = 0xFF000000;

Pixel opaque(std::uint64_t red, std::uint64_t green, std::uint64_t blue)
{
    return static_cast<Pixel>(red + green * 256 + blue * 65'536) + black;
}

// 0 … 255 for the bits of `value` that `mask` has, shifted down to where the lowest of them is.
std::uint64_t channel(std::uint64_t value, std::uint64_t mask)
{
    if (mask == 0)
        return 0;
    value &= mask;
    for (auto shifted = mask; shifted % 2 == 0; shifted /= 2)
        value /= 2;
    std::uint64_t largest = 1;
    for (auto rest = mask; rest != 0; rest /= 2)
        if (rest % 2 == 1)
            largest *= 2;
    --largest;
    const auto scaled = value * 255 / largest; // below 2^40: nothing is lost
    return scaled < 255 ? scaled : 255;
}

struct Picture {
    explicit Picture(ByteView file) : bytes{file}
    {
        require(bytes.size() >= 14 && file[0] == 'B' && file[1] == 'M');
        headerBytes = static_cast<std::int64_t>(bytes.number(14, 4));
        require(isOneOf(headerBytes, {12, 40, 52, 56, 108, 124}));
        require(bytes.size() >= 14 + headerBytes);
        if (headerBytes == 12) {
            width = static_cast<std::int64_t>(bytes.number(18, 2));
            height = static_cast<std::int64_t>(bytes.number(20, 2));
            bitCount = static_cast<int>(bytes.number(24, 2));
        } else {
            width = bytes.signed32(18);
            height = bytes.signed32(22);
            bitCount = static_cast<int>(bytes.number(28, 2));
            compression = bytes.number(30, 4);
            colorsUsed = bytes.number(46, 4);
        }
        isTopDown = height < 0;
        height = isTopDown ? -height : height;
        require(width >= 1 && width <= 4096 && height >= 1 && height <= 4096);
        require(width * height <= 8'388'608);

        switch (compression) {
        case 0: require(isOneOf(bitCount, {1, 4, 8, 16, 24, 32})); break;
        case 1: require(isOneOf(bitCount, {8}) && !isTopDown); break;
        case 2: require(isOneOf(bitCount, {4}) && !isTopDown); break;
        case 3: require(isOneOf(bitCount, {16, 32})); break;
        default: throw NoPicture();
        }

        if (compression == 3)
            masks = {bytes.number(54, 4), bytes.number(58, 4), bytes.number(62, 4)};
        else if (bitCount == 16)
            masks = {0x7C00, 0x03E0, 0x001F};

        const std::int64_t paletteStart =
            compression == 3 && headerBytes == 40 ? 66 : headerBytes + 14;
        const std::int64_t entryBytes = headerBytes == 12 ? 3 : 4;
        std::uint64_t entries = 0;
        if (bitCount <= 8) {
            entries = std::uint64_t{1} << bitCount;
            if (colorsUsed != 0 && colorsUsed <= entries)
                entries = colorsUsed;
        }
        const std::int64_t paletteEnd =
            paletteStart + static_cast<std::int64_t>(entries) * entryBytes;
        require(bytes.size() >= paletteEnd);
        for (std::int64_t at = paletteStart; at < paletteEnd; at += entryBytes)
            palette.push_back(opaque(bytes.at(at + 2), bytes.at(at + 1), bytes.at(at)));

        const auto stated = static_cast<std::int64_t>(bytes.number(10, 4));
        start = stated >= paletteEnd && stated < bytes.size() ? stated : paletteEnd;
    }

    Pixel paletteColor(std::uint64_t index) const
    {
        return index < palette.size() ? palette[index] : black;
    }

    // The row of the picture that the file's row shows.
    std::int64_t row(std::int64_t fileRow) const
    {
        return isTopDown ? fileRow : height - 1 - fileRow;
    }

    Pixel color(std::int64_t rowStart, std::int64_t x) const
    {
        if (bitCount == 24) {
            const std::int64_t at = rowStart + 3 * x;
            return opaque(bytes.at(at + 2), bytes.at(at + 1), bytes.at(at));
        }
        if (bitCount >= 16) {
            const auto value = bytes.number(rowStart + x * bitCount / 8, bitCount / 8);
            return opaque(channel(value, masks[0]), channel(value, masks[1]),
                          channel(value, masks[2]));
        }
        std::uint64_t index = 0;
        for (std::int64_t bit = x * bitCount; bit < (x + 1) * bitCount; ++bit)
            index = index * 2 + (bytes.at(rowStart + bit / 8) >> (7 - bit % 8)) % 2;
        return paletteColor(index);
    }

    void drawRows()
    {
        std::int64_t stride = (width * bitCount + 7) / 8;
        while (stride % 4 != 0)
            ++stride;
        require(bytes.size() >= start + stride * height);
        for (std::int64_t y = 0; y < height; ++y)
            for (std::int64_t x = 0; x < width; ++x)
                plot(x, y, color(start + y * stride, x));
    }

    void drawRuns()
    {
        std::int64_t at = start;
        std::int64_t x = 0;
        std::int64_t y = 0;
        // Index number i of those that begin at `from`.
        const auto indexAt = [&](std::int64_t from, std::int64_t i) {
            if (compression == 1)
                return bytes.at(from + i);
            const auto both = bytes.at(from + i / 2);
            return i % 2 == 0 ? both / 16 : both % 16;
        };
        while (true) {
            const auto count = static_cast<std::int64_t>(bytes.at(at));
            const auto value = static_cast<std::int64_t>(bytes.at(at + 1));
            at += 2;
            if (count > 0) {
                for (std::int64_t i = 0; i < count; ++i)
                    plot(x++, y, paletteColor(indexAt(at - 1, compression == 1 ? 0 : i % 2)));
                require(at < bytes.size());
            } else if (value == 0) {
                x = 0;
                ++y;
            } else if (value == 1) {
                return;
            } else if (value == 2) {
                x += static_cast<std::int64_t>(bytes.at(at));
                y += static_cast<std::int64_t>(bytes.at(at + 1));
                at += 2;
            } else {
                for (std::int64_t i = 0; i < value; ++i)
                    plot(x++, y, paletteColor(indexAt(at, i)));
                const std::int64_t runBytes = compression == 1 ? value : (value + 1) / 2;
                at += runBytes + runBytes % 2;
                require(at < bytes.size());
            }
            if (count == 0 && (value == 0 || value == 2) && y >= height)
                return;
        }
    }

    void plot(std::int64_t x, std::int64_t fileRow, Pixel color)
    {
        if (x < width && fileRow < height)
            pixels[{x, row(fileRow)}] = color;
    }

    Image image()
    {
        if (compression == 1 || compression == 2)
            drawRuns();
        else
            drawRows();
        auto buffer = SkinKit::PixelBuffer::uninitialized(
            {static_cast<int>(width), static_cast<int>(height)});
        for (std::int64_t y = 0; y < height; ++y)
            for (std::int64_t x = 0; x < width; ++x) {
                const auto found = pixels.find({x, y});
                buffer.row(static_cast<int>(y))[static_cast<std::size_t>(x)] =
                    found == pixels.end() ? paletteColor(0) : found->second;
            }
        return {std::move(buffer), Image::Alpha::opaque};
    }

    Bytes bytes;
    std::int64_t headerBytes = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;
    int bitCount = 0;
    std::uint64_t compression = 0;
    std::uint64_t colorsUsed = 0;
    bool isTopDown = false;
    std::array<std::uint64_t, 3> masks{0x00FF0000, 0x0000FF00, 0x000000FF};
    std::vector<Pixel> palette;
    std::int64_t start = 0;
    std::map<std::pair<std::int64_t, std::int64_t>, Pixel> pixels; // those that were written
};

}

std::optional<Image> slowlyDecodedBMP(ByteView file)
{
    try {
        return Picture(file).image();
    } catch (NoPicture) {
        return std::nullopt;
    }
}

}
