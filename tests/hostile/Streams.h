#pragma once

#include "tests/support/Bytes.h"

#include <cstdint>
#include <string_view>

// Compressed streams and PNG files that cost their reader as much as possible. What they hold is
// never made whole, so that making them costs little.
namespace hostile {

using support::ByteBuffer;
using support::ByteView;

// So many mebibytes of zeros, a thousandth as long.
ByteBuffer deflatedZeros(int mebibytes);

// A deflate stream of about so many bytes that holds nothing: blocks that are empty, each with
// tables of its own for the reader to build.
ByteBuffer deflatedNothing(std::size_t byteCount);

// As PNG files hold deflate streams. The checksum at the end is wrong.
ByteBuffer zlibFramed(ByteView deflated);
// The same made from the bytes themselves, right.
ByteBuffer zlibStream(ByteView bytes);

// One chunk of a PNG file.
ByteBuffer pngChunk(std::string_view name, ByteView content);

struct PNGHeader {
    std::uint32_t width = 1;
    std::uint32_t height = 1;
    std::uint8_t depth = 8;
    std::uint8_t colorType = 6; // RGB with alpha
    bool isInterlaced = false;
};

// A PNG file: the header, these chunks, the end.
ByteBuffer png(const PNGHeader& header, ByteView chunks);

// The pixels of such a file, all zero, every row filtered in the way that takes longest.
ByteBuffer zeroPixels(const PNGHeader& header);

}
