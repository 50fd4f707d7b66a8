#include "SkinKit/Graphics/BMPDecoder.h"

#include "tests/differential/RandomBMP.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>

using namespace SkinKit;
using namespace differential;

namespace {

// Thrown where a file cannot be shown.
struct NoImage {};

void require(bool holds)
{
    if (!holds)
        throw NoImage();
}

Pixel opaque(std::int64_t red, std::int64_t green, std::int64_t blue)
{
    return 0xFF000000 | static_cast<Pixel>(red | green << 8 | blue << 16);
}

// The bits of `value` that `mask` has, from where its lowest bit is, as 0 … 255.
std::int64_t channel(std::int64_t value, std::int64_t mask)
{
    if (mask == 0)
        return 0;
    value &= mask;
    for (auto shifted = mask; shifted % 2 == 0; shifted /= 2)
        value /= 2;
    std::int64_t largest = 1;
    for (auto rest = mask; rest != 0; rest /= 2)
        largest *= rest % 2 == 1 ? 2 : 1;
    return std::min<std::int64_t>(255, value * 255 / (largest - 1));
}

// A second decoder, written from the format's tables one pixel at a time, without regard to speed.
// It shares nothing with the decoder under test.
class SlowDecoder {
public:
    explicit SlowDecoder(support::ByteView file) : file_(file)
    {
        require(number(0, 2) == 0x4D42); // "BM"
        headerBytes_ = number(14, 4);
        require(std::ranges::count(std::array{12, 40, 52, 56, 108, 124}, headerBytes_) == 1);
        require(std::ssize(file) >= 14 + headerBytes_);
        const bool isCore = headerBytes_ == 12;
        width_ = isCore ? number(18, 2) : static_cast<std::int32_t>(number(18, 4));
        height_ = isCore ? number(20, 2) : static_cast<std::int32_t>(number(22, 4));
        bitCount_ = number(isCore ? 24 : 28, 2);
        compression_ = isCore ? 0 : number(30, 4);
        isTopDown_ = height_ < 0;
        height_ = isTopDown_ ? -height_ : height_;
        require(width_ >= 1 && width_ <= 4096 && height_ >= 1 && height_ <= 4096);
        require(width_ * height_ <= 8'388'608);
        const std::multimap<std::int64_t, std::int64_t> depths{
            {0, 1 },
            {0, 4 },
            {0, 8 },
            {0, 16},
            {0, 24},
            {0, 32},
            {1, 8 },
            {2, 4 },
            {3, 16},
            {3, 32}
        };
        const auto [first, last] = depths.equal_range(compression_);
        require(std::any_of(first, last, [&](auto pair) { return pair.second == bitCount_; }));
        require(!isTopDown_ || !hasRuns());

        if (compression_ == 3)
            masks_ = {number(54, 4), number(58, 4), number(62, 4)};
        else if (bitCount_ == 16)
            masks_ = {0x7C00, 0x03E0, 0x001F};
        const std::int64_t paletteEnd = readPalette(isCore ? 3 : 4, isCore ? 0 : number(46, 4));
        const std::int64_t stated = number(10, 4);
        start_ = stated >= paletteEnd && stated < std::ssize(file) ? stated : paletteEnd;
    }

    Image image()
    {
        if (hasRuns())
            drawRuns();
        else
            drawRows();
        auto pixels =
            PixelBuffer::uninitialized({static_cast<int>(width_), static_cast<int>(height_)});
        std::fill_n(pixels.data(), pixels.count(), color(0));
        for (const auto& [place, pixel] : pixels_)
            pixels.row(place.y)[static_cast<std::size_t>(place.x)] = pixel;
        return {std::move(pixels), Image::Alpha::opaque};
    }

private:
    bool hasRuns() const { return compression_ == 1 || compression_ == 2; }

    // Little-endian.
    std::int64_t number(std::int64_t offset, int byteCount) const
    {
        require(offset >= 0 && offset + byteCount <= std::ssize(file_));
        std::int64_t value = 0;
        for (int i = byteCount - 1; i >= 0; --i)
            value = value * 256 + file_[static_cast<std::size_t>(offset + i)];
        return value;
    }

    // Gives where it ends.
    std::int64_t readPalette(std::int64_t entryBytes, std::int64_t colorsUsed)
    {
        std::int64_t at = compression_ == 3 && headerBytes_ == 40 ? 66 : headerBytes_ + 14;
        std::int64_t entries = bitCount_ <= 8 ? 1 << bitCount_ : 0;
        if (colorsUsed != 0 && colorsUsed <= entries)
            entries = colorsUsed;
        require(std::ssize(file_) >= at + entries * entryBytes);
        for (; entries > 0; --entries, at += entryBytes)
            palette_.push_back(opaque(number(at + 2, 1), number(at + 1, 1), number(at, 1)));
        return at;
    }

    Pixel color(std::int64_t index) const
    {
        const auto i = static_cast<std::size_t>(index);
        return i < palette_.size() ? palette_[i] : opaque(0, 0, 0);
    }

    void plot(std::int64_t x, std::int64_t fileRow, Pixel pixel)
    {
        const std::int64_t y = isTopDown_ ? fileRow : height_ - 1 - fileRow;
        if (x < width_ && fileRow < height_)
            pixels_.emplace_back(Point{static_cast<int>(x), static_cast<int>(y)}, pixel);
    }

    Pixel colorInRow(std::int64_t row, std::int64_t x) const
    {
        if (bitCount_ == 24)
            return opaque(number(row + 3 * x + 2, 1), number(row + 3 * x + 1, 1),
                          number(row + 3 * x, 1));
        if (bitCount_ >= 16) {
            const auto value = number(row + x * bitCount_ / 8, static_cast<int>(bitCount_ / 8));
            return opaque(channel(value, masks_[0]), channel(value, masks_[1]),
                          channel(value, masks_[2]));
        }
        std::int64_t index = 0;
        for (std::int64_t bit = x * bitCount_; bit < (x + 1) * bitCount_; ++bit)
            index = index * 2 + (number(row + bit / 8, 1) >> (7 - bit % 8)) % 2;
        return color(index);
    }

    void drawRows()
    {
        const std::int64_t stride = (width_ * bitCount_ + 31) / 32 * 4;
        require(std::ssize(file_) >= start_ + stride * height_);
        for (std::int64_t y = 0; y < height_; ++y)
            for (std::int64_t x = 0; x < width_; ++x)
                plot(x, y, colorInRow(start_ + y * stride, x));
    }

    // Index number i of those that begin at `from`.
    std::int64_t indexAt(std::int64_t from, std::int64_t i) const
    {
        if (compression_ == 1)
            return number(from + i, 1);
        const auto both = number(from + i / 2, 1);
        return i % 2 == 0 ? both / 16 : both % 16;
    }

    void drawRuns()
    {
        std::int64_t at = start_, x = 0, y = 0;
        while (true) {
            const auto count = number(at, 1);
            const auto value = number(at + 1, 1);
            at += 2;
            if (count > 0) {
                for (std::int64_t i = 0; i < count; ++i)
                    plot(x++, y, color(indexAt(at - 1, compression_ == 1 ? 0 : i % 2)));
                require(at < std::ssize(file_));
            } else if (value == 0) {
                x = 0;
                ++y;
            } else if (value == 1) {
                return;
            } else if (value == 2) {
                x += number(at, 1);
                y += number(at + 1, 1);
                at += 2;
            } else {
                for (std::int64_t i = 0; i < value; ++i)
                    plot(x++, y, color(indexAt(at, i)));
                at += compression_ == 1 ? (value + 1) / 2 * 2 : (value + 3) / 4 * 2;
                require(at < std::ssize(file_));
            }
            if (count == 0 && (value == 0 || value == 2) && y >= height_)
                return;
        }
    }

    support::ByteView file_;
    std::int64_t headerBytes_ = 0, width_ = 0, height_ = 0, bitCount_ = 0, compression_ = 0;
    bool isTopDown_ = false;
    std::array<std::int64_t, 3> masks_{0x00FF0000, 0x0000FF00, 0x000000FF};
    std::vector<Pixel> palette_;
    std::int64_t start_ = 0;
    std::vector<std::pair<Point, Pixel>> pixels_; // in the order they are written
};

std::optional<Image> slowlyDecoded(support::ByteView file)
{
    try {
        return SlowDecoder(file).image();
    } catch (NoImage) {
        return std::nullopt;
    }
}

}

TEST(DifferentialBMPDecoder, ShowsTheSameImages)
{
    Random random(1);
    int shown = 0;
    constexpr int rounds = 6000;
    for (int round = 0; round < rounds; ++round) {
        const auto file = randomBMP(random, BMPKind::any).bytes();
        const auto image = BMPDecoder::decode(file);
        ASSERT_EQ(image, slowlyDecoded(file)) << round;
        shown += image && image->isOpaque();
    }
    EXPECT_GT(shown, rounds * 4 / 5);
}

TEST(DifferentialBMPDecoder, RejectsTheSameDamagedFiles)
{
    constexpr std::size_t headBytes = 70; // headers and masks
    Random random(2);
    int shown = 0;
    constexpr int rounds = 12'000;
    for (int round = 0; round < rounds; ++round) {
        auto file = randomBMP(random, BMPKind::any).bytes();
        if (random.oneIn(4))
            file.resize(random.below(file.size()));
        else
            damage(file, random, headBytes);
        const auto image = BMPDecoder::decode(file);
        ASSERT_EQ(image, slowlyDecoded(file)) << round;
        shown += image.has_value();
    }
    // Damage that all or no files survive would test nothing.
    EXPECT_GT(shown, rounds / 4);
    EXPECT_LT(shown, rounds * 3 / 4);
}
