#pragma once

#include "tests/support/Bytes.h"

#include <zlib.h>

#include <cstdint>
#include <stdexcept>
#include <string_view>

// PNG files put together chunk by chunk, so that any of them can be wrong.
namespace support {

struct PNGHeader {
    std::uint32_t width = 1;
    std::uint32_t height = 1;
    std::uint8_t depth = 8;
    std::uint8_t colorType = 6; // RGB with alpha
    bool isInterlaced = false;
};

inline void appendBigEndian(ByteBuffer& target, unsigned long value)
{
    append(target,
           ByteBuffer{static_cast<std::uint8_t>(value >> 24),
                      static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 8),
                      static_cast<std::uint8_t>(value)});
}

inline ByteBuffer pngChunk(std::string_view name, ByteView content)
{
    ByteBuffer chunk;
    appendBigEndian(chunk, content.size());
    append(chunk, bytes(name));
    append(chunk, content);
    appendBigEndian(chunk, crc32(0, &chunk[4], static_cast<uInt>(chunk.size() - 4)));
    return chunk;
}

// The header, these chunks, the end.
inline ByteBuffer pngFile(const PNGHeader& header, ByteView chunks)
{
    ByteBuffer fields;
    appendBigEndian(fields, header.width);
    appendBigEndian(fields, header.height);
    append(fields, ByteBuffer{header.depth, header.colorType, 0, 0, header.isInterlaced});
    ByteBuffer file = bytes("\x89PNG\r\n\x1A\n");
    append(file, pngChunk("IHDR", fields));
    append(file, chunks);
    append(file, pngChunk("IEND", {}));
    return file;
}

// The bytes as a zlib stream. At level 0 they are stored.
inline ByteBuffer zlibStream(ByteView bytes, int level = Z_BEST_COMPRESSION)
{
    auto size = compressBound(bytes.size());
    ByteBuffer stream(size);
    if (compress2(stream.data(), &size, bytes.data(), bytes.size(), level) != Z_OK)
        throw std::runtime_error("compress2");
    stream.resize(size);
    return stream;
}

}
