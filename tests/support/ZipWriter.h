#pragma once

#include "tests/support/Bytes.h"

#include <cstdint>
#include <optional>
#include <string>

// ZIP files built by hand, so that any field can be wrong.
namespace support {

// One entry. What is not set is what a well-formed archive would have.
struct ZipEntry {
    std::string name;
    ByteBuffer data; // decompressed
    std::uint16_t method = 8;
    std::uint16_t flags = 0;
    std::uint16_t madeBy = 0;             // upper byte: the system; 3 is Unix
    std::uint32_t externalAttributes = 0; // upper half: the Unix mode
    std::optional<ByteBuffer> stored;     // the bytes in the container, instead of compressed data
    std::optional<std::uint32_t> crc;
    std::optional<std::uint32_t> uncompressedSize;
    bool hasLargeNumbers = false; // the directory has its sizes and its place in 64 bits
    bool sharesBytes = false;     // the last entry's, so that it stands in the directory only
};

class ZipWriter {
public:
    ZipWriter& add(ZipEntry entry);
    ZipWriter& add(std::string name, ByteView data)
    {
        return add({
            .name = std::move(name), .data = {data.begin(), data.end()}
        });
    }

    // The container so far, with its directory.
    ByteBuffer bytes() const;
    // The same with an end whose numbers have 64 bits.
    ByteBuffer bytesWithLargeEnd() const;

private:
    ByteBuffer entries_;
    ByteBuffer directory_;
    std::size_t lastOffset_ = 0;
    std::size_t lastStoredBytes_ = 0;
    std::uint32_t count_ = 0;
};

// A raw deflate stream, made by zlib.
ByteBuffer deflated(ByteView data);

}
