#pragma once

#include "SkinKit/Base/Bytes.h"

#include <cstdint>
#include <optional>

namespace SkinKit {

// The header of a bitmap, as bitmap files and cursor files have it: its own size first, and then
// what the pixels are. As it stands there; whether the numbers make sense is the decoders' affair.
struct BMPHeader {
    enum Compression : std::uint32_t { uncompressed = 0, rle8 = 1, rle4 = 2, bitFields = 3 };

    static constexpr std::uint32_t coreBytes = 12; // OS/2: sides of 16 bits, palette entries of 3
    static constexpr std::uint32_t infoBytes = 40;
    static constexpr std::int64_t masksBytes = 12; // red, green, blue
    static constexpr std::int64_t masksOffset =
        40; // with compression 3, whatever the header's size

    std::uint32_t headerBytes = 0;
    std::int64_t width = 0;
    std::int64_t height = 0; // negative: top row first
    int bitCount = 0;
    std::uint32_t compression = uncompressed;
    std::uint32_t colorsUsed = 0;

    // Reads it at the front of `bytes`; nothing when its size is none of the known ones or it is
    // not all there.
    static std::optional<BMPHeader> read(ByteView bytes);

    bool isCore() const { return headerBytes == coreBytes; }
    // Entries of the palette: as many as are said to be used, if that is possible, else all.
    int paletteEntries() const;
    int paletteEntryBytes() const { return isCore() ? 3 : 4; }
    // Where the palette lies, and where it ends.
    std::int64_t paletteOffset() const;
    std::int64_t paletteEnd() const;

    // Bytes from a row to the next: rows are padded to 4 bytes.
    static std::int64_t rowStride(std::int64_t width, int bitCount)
    {
        return (width * bitCount + 31) / 32 * 4;
    }
};

}
