#pragma once

#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Graphics/RGBColor.h"
#include "tests/support/Bytes.h"

#include <cstdint>
#include <optional>
#include <vector>

// Bitmap files, written from the format's tables and from nothing in the decoder.
namespace support {

// A file with any header, its fields to be set wrong at will.
struct BMPFile {
    std::uint32_t headerBytes = 40; // 12: the oldest one, whose sides have 16 bits
    std::int32_t width = 1;
    std::int32_t height = 1; // negative: top row first
    int bitCount = 24;
    std::uint32_t compression = 0;
    std::uint32_t colorsUsed = 0;
    std::vector<std::uint32_t> masks; // red, green, blue
    std::vector<SkinKit::RGBColor> palette;
    std::optional<std::uint32_t> pixelOffset; // else where the pixels begin
    ByteBuffer pixels;                        // as they are in the file, rows padded

    ByteBuffer bytes() const;
};

// A picture as a file of the given depth. Below 24 bits its colours make the palette, in the order
// they appear in; there must not be more of them than the depth allows.
ByteBuffer encodeBMP(const SkinKit::Image& image, int bitCount);
// The same as RLE8 or RLE4 (bitCount 8 or 4): runs, absolute stretches, and an end of bitmap.
ByteBuffer encodeRLE(const SkinKit::Image& image, int bitCount);

// A picture all of one colour.
SkinKit::Image solidImage(SkinKit::Size size, SkinKit::RGBColor color);

}
