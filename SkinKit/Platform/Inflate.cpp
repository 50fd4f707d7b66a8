#include "SkinKit/Platform/Inflate.h"

#include "SkinKit/Platform/Check.h"

#include <libdeflate.h>

#include <algorithm>
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

libdeflate_result inflateInto(ByteBuffer& bytes, std::int64_t room, ByteView deflated)
{
    bytes.resize(static_cast<std::size_t>(room));
    std::size_t written = 0;
    const auto result =
        libdeflate_deflate_decompress(threadDecompressor(), deflated.data(), deflated.size(),
                                      bytes.data(), bytes.size(), &written);
    if (result == LIBDEFLATE_SUCCESS)
        bytes.resize(written);
    return result;
}

}

std::optional<ByteBuffer> inflate(ByteView deflated, std::int64_t expectedBytes,
                                  std::int64_t maxBytes)
{
    check(maxBytes >= 0, "a limit must not be negative");
    // No stream says more than 258 bytes in two bits, so a false size can't ask for much memory.
    constexpr std::int64_t mostPerByte = std::int64_t{258} * 4;
    maxBytes = std::min(maxBytes, mostPerByte * std::ssize(deflated));
    const std::int64_t firstRoom = std::clamp<std::int64_t>(expectedBytes, 0, maxBytes);
    ByteBuffer bytes;
    auto result = inflateInto(bytes, firstRoom, deflated);
    if (result == LIBDEFLATE_INSUFFICIENT_SPACE && firstRoom < maxBytes)
        result = inflateInto(bytes, maxBytes, deflated);
    if (result != LIBDEFLATE_SUCCESS)
        return std::nullopt;

    if (bytes.size() < bytes.capacity() / 2)
        bytes.shrink_to_fit(); // an entry that claimed far more than it held
    return bytes;
}

}
