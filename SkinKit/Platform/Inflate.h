#pragma once

#include "SkinKit/Platform/Bytes.h"

#include <cstdint>
#include <optional>

namespace SkinKit {

// The most bytes that a byte of a deflate stream can stand for: 258 in two bits.
inline constexpr std::int64_t mostInflatedPerByte = std::int64_t{258} * 4;

// Decompresses a raw deflate stream. `expectedBytes` is where to start; a stream that holds more is
// tried again with all of `maxBytes`. Nothing when the stream is damaged, cut short, or longer than
// `maxBytes`. What follows the stream's end is ignored.
//
// A stream may consist of blocks that hold nothing but tables to be built, which takes a hundred
// times as long as its bytes would otherwise, some 30 µs a block. So with `spareBlocks` they are
// counted, which is slower by half: a stream that has more of them than one for each 2048 bytes
// that come out, and 64, takes the rest from there, and counts as damaged where they are not
// enough.
std::optional<ByteBuffer> inflate(ByteView deflated, std::int64_t expectedBytes,
                                  std::int64_t maxBytes, std::int64_t* spareBlocks = nullptr);

}
