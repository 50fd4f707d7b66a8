#include "SkinKit/Platform/Inflate.h"

#include "SkinKit/Platform/Check.h"

#include <libdeflate.h>
#include <zlib.h>

#include <algorithm>
#include <limits>
#include <memory>

namespace SkinKit {
namespace {

struct FreeDecompressor {
    void operator()(libdeflate_decompressor* d) const { libdeflate_free_decompressor(d); }
};
using Decompressor = std::unique_ptr<libdeflate_decompressor, FreeDecompressor>;

// Making a decompressor costs more than inflating a small entry, so each thread keeps one.
libdeflate_decompressor* threadDecompressor()
{
    thread_local const Decompressor decompressor(libdeflate_alloc_decompressor());
    checkMemory(decompressor != nullptr, "no memory for a decompressor");
    return decompressor.get();
}

enum class Outcome { done, tooLong, damaged };

Outcome inflateFast(ByteBuffer& bytes, ByteView deflated)
{
    std::size_t written = 0;
    const auto result =
        libdeflate_deflate_decompress(threadDecompressor(), deflated.data(), deflated.size(),
                                      bytes.data(), bytes.size(), &written);
    bytes.resize(result == LIBDEFLATE_SUCCESS ? written : 0);
    return result == LIBDEFLATE_SUCCESS              ? Outcome::done
           : result == LIBDEFLATE_INSUFFICIENT_SPACE ? Outcome::tooLong
                                                     : Outcome::damaged;
}

// Stops at the end of each block, to count them.
Outcome inflateCounting(ByteBuffer& bytes, ByteView deflated, std::int64_t& spareBlocks)
{
    constexpr int rawWindow = -15;
    constexpr std::int64_t smallestBlock = 2048; // bytes that a block yields, in the mean
    constexpr std::int64_t fewBlocks = 64;
    constexpr int atBlockEnd = 128;
    z_stream stream{};
    checkMemory(inflateInit2(&stream, rawWindow) == Z_OK, "no memory for a decompressor");
    const std::unique_ptr<z_stream, decltype(&inflateEnd)> closer(&stream, inflateEnd);
    std::uint8_t nowhere = 0; // zlib wants a place to write to even where there is no room
    stream.next_in = const_cast<Bytef*>(deflated.data());
    stream.avail_in = static_cast<uInt>(deflated.size());
    stream.next_out = bytes.empty() ? &nowhere : bytes.data();
    stream.avail_out = static_cast<uInt>(bytes.size());
    std::int64_t blocks = 0; // not counting what the spare ones have paid for
    int result = Z_OK;
    bool isAtBlockEnd = false;
    do {
        result = ::inflate(&stream, Z_BLOCK);
        isAtBlockEnd = (stream.data_type & atBlockEnd) != 0;
        const auto written = static_cast<std::int64_t>(stream.total_out);
        if (isAtBlockEnd && ++blocks > fewBlocks + written / smallestBlock) {
            if (spareBlocks == 0)
                return Outcome::damaged;
            --spareBlocks;
            --blocks;
        }
        // A block of a few bits that were read before counts as no progress.
    } while (result == Z_OK || (result == Z_BUF_ERROR && isAtBlockEnd));
    if (result == Z_STREAM_END) {
        bytes.resize(stream.total_out);
        return Outcome::done;
    }
    return result == Z_BUF_ERROR && stream.avail_out == 0 ? Outcome::tooLong : Outcome::damaged;
}

Outcome inflateInto(ByteBuffer& bytes, std::int64_t room, ByteView deflated,
                    std::int64_t* spareBlocks)
{
    constexpr std::int64_t countable = std::numeric_limits<uInt>::max();
    bytes.resize(static_cast<std::size_t>(room));
    const bool canCount = std::ssize(deflated) <= countable && room <= countable;
    return spareBlocks && canCount ? inflateCounting(bytes, deflated, *spareBlocks)
                                   : inflateFast(bytes, deflated);
}

}

std::optional<ByteBuffer> inflate(ByteView deflated, std::int64_t expectedBytes,
                                  std::int64_t maxBytes, std::int64_t* spareBlocks)
{
    check(maxBytes >= 0, "a limit must not be negative");
    // A false size can't ask for much memory.
    maxBytes = std::min(maxBytes, mostInflatedPerByte * std::ssize(deflated));
    const std::int64_t firstRoom = std::clamp<std::int64_t>(expectedBytes, 0, maxBytes);
    ByteBuffer bytes;
    auto result = inflateInto(bytes, firstRoom, deflated, spareBlocks);
    if (result == Outcome::tooLong && firstRoom < maxBytes)
        result = inflateInto(bytes, maxBytes, deflated, spareBlocks);
    if (result != Outcome::done)
        return std::nullopt;

    if (bytes.size() < bytes.capacity() / 2)
        bytes.shrink_to_fit(); // an entry that claimed far more than it held
    return bytes;
}

}
