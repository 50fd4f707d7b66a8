#pragma once

#include "SkinKit/Base/Bytes.h"

#include <zlib.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace fuzzing {

// The same bytes with the checksums of all PNG files in them put right: without it nearly every
// change to one would end at a checksum.
inline SkinKit::ByteBuffer withPNGChecksums(SkinKit::ByteView bytes)
{
    constexpr std::string_view signature = "\x89PNG\r\n\x1A\n";
    constexpr std::size_t frame = 12; // a chunk's length and name, and its checksum
    const auto number = [](const std::uint8_t* at) {
        return static_cast<std::size_t>(at[0]) << 24 | static_cast<std::size_t>(at[1]) << 16 |
               static_cast<std::size_t>(at[2]) << 8 | at[3];
    };
    SkinKit::ByteBuffer result(bytes.begin(), bytes.end());
    const std::string_view text = SkinKit::asText(result);
    for (auto at = text.find(signature); at != text.npos; at = text.find(signature, at)) {
        at += signature.size();
        while (at + frame <= result.size()) {
            const std::size_t length = number(&result[at]);
            if (length > result.size() - at - frame)
                break;
            const auto checksum = crc32(0, &result[at + 4], static_cast<unsigned>(length + 4));
            for (std::size_t i = 0; i < 4; ++i)
                result[at + 8 + length + i] = static_cast<std::uint8_t>(checksum >> (24 - 8 * i));
            at += frame + length;
        }
    }
    return result;
}

}
