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
    check(decompressor != nullptr, "no memory for a decompressor");
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
Outcome inflateCounting(ByteBuffer& bytes, ByteView deflated)
{
    constexpr int rawWindow = -15;
    constexpr uLong smallestBlock = 256; // bytes that a block yields, in the mean
    constexpr uLong fewBlocks = 64;
    constexpr int atBlockEnd = 128;
    z_stream stream{};
    check(inflateInit2(&stream, rawWindow) == Z_OK, "no memory for a decompressor");
    const std::unique_ptr<z_stream, decltype(&inflateEnd)> closer(&stream, inflateEnd);
    std::uint8_t nowhere = 0; // zlib wants a place to write to even where there is no room
    stream.next_in = const_cast<Bytef*>(deflated.data());
    stream.avail_in = static_cast<uInt>(deflated.size());
    stream.next_out = bytes.empty() ? &nowhere : bytes.data();
    stream.avail_out = static_cast<uInt>(bytes.size());
    uLong blocks = 0;
    int result = Z_OK;
    bool isAtBlockEnd = false;
    do {
        result = ::inflate(&stream, Z_BLOCK);
        isAtBlockEnd = (stream.data_type & atBlockEnd) != 0;
        if (isAtBlockEnd && ++blocks > fewBlocks + stream.total_out / smallestBlock)
            return Outcome::damaged;
        // A block of a few bits that were read before counts as no progress.
    } while (result == Z_OK || (result == Z_BUF_ERROR && isAtBlockEnd));
    if (result == Z_STREAM_END) {
        bytes.resize(stream.total_out);
        return Outcome::done;
    }
    return result == Z_BUF_ERROR && stream.avail_out == 0 ? Outcome::tooLong : Outcome::damaged;
}

Outcome inflateInto(ByteBuffer& bytes, std::int64_t room, ByteView deflated, Care care)
{
    constexpr std::int64_t countable = std::numeric_limits<uInt>::max();
    bytes.resize(static_cast<std::size_t>(room));
    const bool canCount = std::ssize(deflated) <= countable && room <= countable;
    return care == Care::taken && canCount ? inflateCounting(bytes, deflated)
                                           : inflateFast(bytes, deflated);
}

}

std::optional<ByteBuffer> inflate(ByteView deflated, std::int64_t expectedBytes,
                                  std::int64_t maxBytes, Care care)
{
    check(maxBytes >= 0, "a limit must not be negative");
    // No stream says more than 258 bytes in two bits, so a false size can't ask for much memory.
    constexpr std::int64_t mostPerByte = std::int64_t{258} * 4;
    maxBytes = std::min(maxBytes, mostPerByte * std::ssize(deflated));
    const std::int64_t firstRoom = std::clamp<std::int64_t>(expectedBytes, 0, maxBytes);
    ByteBuffer bytes;
    auto result = inflateInto(bytes, firstRoom, deflated, care);
    if (result == Outcome::tooLong && firstRoom < maxBytes)
        result = inflateInto(bytes, maxBytes, deflated, care);
    if (result != Outcome::done)
        return std::nullopt;

    if (bytes.size() < bytes.capacity() / 2)
        bytes.shrink_to_fit(); // an entry that claimed far more than it held
    return bytes;
}

}
