#pragma once

#include "SkinKit/Platform/Bytes.h"

#include <cstdint>
#include <optional>

namespace SkinKit {

// A stream may consist of blocks that hold nothing but tables to be built, which costs a hundred
// times what its bytes would otherwise.
enum class Care {
    none,  // the fastest way
    taken, // slower by half; a stream of far more blocks than what comes out of it needs is damaged
};

// Decompresses a raw deflate stream. `expectedBytes` is where to start; a stream that holds more is
// tried again with all of `maxBytes`. Nothing when the stream is damaged, cut short, or longer than
// `maxBytes`. What follows the stream's end is ignored.
std::optional<ByteBuffer> inflate(ByteView deflated, std::int64_t expectedBytes,
                                  std::int64_t maxBytes, Care care = Care::none);

}
