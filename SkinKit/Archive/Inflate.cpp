#include "SkinKit/Archive/Inflate.h"

#include "SkinKit/Base/Check.h"

#include <libdeflate.h>

#include <algorithm>
#include <memory>

namespace SkinKit {
namespace {

// The most bytes that one byte of a deflate stream can stand for: 258 in two bits.
constexpr std::int64_t maxDeflateRatio = std::int64_t{258} * 4;

// A call can't be interrupted. The slowest streams consist of blocks that hold nothing but code
// tables: a dynamic block without symbols and an empty static one, 12.5 bytes and 3.3 µs together.
constexpr LoadMeter::Time maxTimePerByte(275);

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

// Fills `bytes`, and cuts it to what came out.
libdeflate_result inflateInto(ByteBuffer& bytes, ByteView deflated)
{
    std::size_t written = 0;
    const auto result =
        libdeflate_deflate_decompress(threadDecompressor(), deflated.data(), deflated.size(),
                                      bytes.data(), bytes.size(), &written);
    bytes.resize(result == LIBDEFLATE_SUCCESS ? written : 0);
    return result;
}

}

std::optional<ByteBuffer> inflate(ByteView deflated, std::int64_t expectedBytes,
                                  std::int64_t maxBytes, LoadMeter& meter)
{
    check(maxBytes >= 0, "a limit must not be negative");
    // A false size can't ask for much memory.
    maxBytes = std::min(maxBytes, maxDeflateRatio * std::ssize(deflated));
    ByteBuffer bytes;
    for (auto room = std::clamp<std::int64_t>(expectedBytes, 0, maxBytes);; room = maxBytes) {
        if (!meter.hasTimeFor(maxTimePerByte * std::ssize(deflated)))
            return std::nullopt;
        bytes.resize(static_cast<std::size_t>(room));
        const auto result = inflateInto(bytes, deflated);
        if (result == LIBDEFLATE_SUCCESS)
            break;
        if (result != LIBDEFLATE_INSUFFICIENT_SPACE || room == maxBytes)
            return std::nullopt;
    }
    if (bytes.size() < bytes.capacity() / 2)
        bytes.shrink_to_fit(); // an entry that claimed far more than it held
    return bytes;
}

}
