#pragma once

#include "SkinKit/Base/Bytes.h"
#include "SkinKit/Base/LoadMeter.h"

#include <cstdint>
#include <optional>

namespace SkinKit {

// Decompresses a raw deflate stream. `expectedBytes` is the size to try first; a stream that holds
// more is decompressed again with room for `maxBytes`. Nothing when the stream is damaged,
// truncated or longer than `maxBytes`, or when the meter's time doesn't suffice for the worst
// stream of this length. What follows the stream's end is ignored.
std::optional<ByteBuffer> inflate(ByteView deflated, std::int64_t expectedBytes,
                                  std::int64_t maxBytes, LoadMeter& meter);

}
