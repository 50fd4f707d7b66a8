#pragma once

#include "SkinKit/Platform/Bytes.h"

#include <cstdint>
#include <optional>

namespace SkinKit {

// Decompresses a raw deflate stream. `expectedBytes` is where to start; a stream that holds more is
// tried again with all of `maxBytes`. Nothing when the stream is damaged, cut short, or longer than
// `maxBytes`. What follows the stream's end is ignored.
std::optional<ByteBuffer> inflate(ByteView deflated, std::int64_t expectedBytes,
                                  std::int64_t maxBytes);

}
