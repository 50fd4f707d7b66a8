#include "tests/hostile/Streams.h"

#include <zlib.h>

#include <array>
#include <stdexcept>

namespace hostile {
namespace {

constexpr std::size_t mebibyte = 1 << 20;

using support::append;

// Bits from the lowest of a byte on, as deflate has them.
class BitWriter {
public:
    void put(unsigned value, int count)
    {
        for (int i = 0; i < count; ++i) {
            if (place_ == 0)
                bytes_.push_back(0);
            bytes_.back() = static_cast<std::uint8_t>(bytes_.back() | (value >> i & 1U) << place_);
            place_ = (place_ + 1) % 8;
        }
    }
    bool isWhole() const { return place_ == 0; }
    std::size_t size() const { return bytes_.size(); }
    ByteBuffer take() { return std::move(bytes_); }

private:
    ByteBuffer bytes_;
    int place_ = 0;
};

enum BlockType : unsigned { stored = 0, fixedCodes = 1, ownCodes = 2 };

// A block whose only literal code is the end's, which comes at once. The lengths of its codes are
// written with two codes of one bit: "so many zeros" (18 in the format's table) is 1, "one" is 0.
void putEmptyBlock(BitWriter& bits)
{
    constexpr int lengthCodes = 18; // up to that of "one", in the format's order
    bits.put(ownCodes << 1, 3);
    bits.put(0, 5); // 257 literals and lengths
    bits.put(0, 5); // 1 distance
    bits.put(lengthCodes - 4, 4);
    for (int i = 0; i < lengthCodes; ++i)
        bits.put(i == 2 || i == lengthCodes - 1 ? 1 : 0, 3);
    for (const unsigned zeros : {138U, 118U}) {
        bits.put(1, 1);
        bits.put(zeros - 11, 7);
    }
    bits.put(0, 1); // the end of the block
    bits.put(0, 1); // the distance
    bits.put(0, 1); // the end itself
}

// With the format's own codes, so that a reader that keeps one set has to change it.
void putEmptyFixedBlock(BitWriter& bits)
{
    bits.put(fixedCodes << 1, 3);
    bits.put(0, 7);
}

ByteBuffer bigEndian(std::uint32_t value)
{
    return {static_cast<std::uint8_t>(value >> 24), static_cast<std::uint8_t>(value >> 16),
            static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)};
}

struct Pass {
    std::uint32_t left, top, across, down;
};
// clang-format off
constexpr std::array interlacing{
    Pass{0, 0, 8, 8}, Pass{4, 0, 8, 8}, Pass{0, 4, 4, 8}, Pass{2, 0, 4, 4},
    Pass{0, 2, 2, 4}, Pass{1, 0, 2, 2}, Pass{0, 1, 1, 2},
};
// clang-format on

}

ByteBuffer deflatedZeros(int mebibytes)
{
    // A piece that ends flushed may be repeated.
    const ByteBuffer zeros(mebibyte);
    ByteBuffer piece(2 * mebibyte);
    z_stream stream{};
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY);
    stream.next_in = const_cast<Bytef*>(zeros.data());
    stream.avail_in = static_cast<uInt>(zeros.size());
    stream.next_out = piece.data();
    stream.avail_out = static_cast<uInt>(piece.size());
    deflate(&stream, Z_FULL_FLUSH);
    piece.resize(stream.total_out);
    deflateEnd(&stream);

    ByteBuffer whole;
    for (int i = 0; i < mebibytes; ++i)
        append(whole, piece);
    append(whole, ByteBuffer{1, 0, 0, 0xFF, 0xFF}); // an empty last block
    return whole;
}

ByteBuffer deflatedNothing(std::size_t byteCount)
{
    BitWriter bits;
    do {
        putEmptyBlock(bits);
        putEmptyFixedBlock(bits);
    } while (!bits.isWhole());
    const ByteBuffer piece = bits.take();

    ByteBuffer whole;
    whole.reserve(byteCount + piece.size());
    while (whole.size() < byteCount)
        append(whole, piece);
    append(whole, ByteBuffer{1, 0, 0, 0xFF, 0xFF});
    return whole;
}

ByteBuffer zlibFramed(ByteView deflated)
{
    ByteBuffer stream{0x78, 0x01};
    append(stream, deflated);
    append(stream, ByteBuffer(4, 0));
    return stream;
}

ByteBuffer zlibStream(ByteView bytes)
{
    auto size = compressBound(bytes.size());
    ByteBuffer stream(size);
    if (compress2(stream.data(), &size, bytes.data(), bytes.size(), 9) != Z_OK)
        throw std::runtime_error("compress2");
    stream.resize(size);
    return stream;
}

ByteBuffer pngChunk(std::string_view name, ByteView content)
{
    ByteBuffer named = support::bytes(name);
    append(named, content);
    ByteBuffer chunk = bigEndian(static_cast<std::uint32_t>(content.size()));
    append(chunk, named);
    append(chunk, bigEndian(static_cast<std::uint32_t>(
                      crc32(0, named.data(), static_cast<uInt>(named.size())))));
    return chunk;
}

ByteBuffer png(const PNGHeader& header, ByteView chunks)
{
    ByteBuffer fields = bigEndian(header.width);
    append(fields, bigEndian(header.height));
    append(fields, ByteBuffer{header.depth, header.colorType, 0, 0, header.isInterlaced});
    ByteBuffer file = support::bytes("\x89PNG\r\n\x1A\n");
    append(file, pngChunk("IHDR", fields));
    append(file, chunks);
    append(file, pngChunk("IEND", {}));
    return file;
}

ByteBuffer zeroPixels(const PNGHeader& header)
{
    constexpr std::uint8_t paeth = 4;
    const std::uint32_t pixelBytes = (header.colorType == 6 ? 4U : 3U) * header.depth / 8;
    ByteBuffer rows;
    const auto addPass = [&](const Pass& pass) {
        const auto count = [](std::uint32_t side, std::uint32_t first, std::uint32_t step) {
            return side > first ? (side - first + step - 1) / step : 0;
        };
        const auto width = count(header.width, pass.left, pass.across);
        for (std::uint32_t y = count(header.height, pass.top, pass.down); width > 0 && y > 0; --y) {
            rows.push_back(paeth);
            rows.resize(rows.size() + std::size_t{width} * pixelBytes);
        }
    };
    if (!header.isInterlaced)
        addPass({0, 0, 1, 1});
    else
        for (const Pass& pass : interlacing)
            addPass(pass);
    return rows;
}

}
