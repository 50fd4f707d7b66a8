#pragma once

#include "SkinKit/Base/Bytes.h"
#include "SkinKit/Graphics/Image.h"

#include <zlib.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <source_location>

// What every fuzz target needs: its entry, and a way to say what must hold.
//
// A target returns 0, or `notKept` for an input that was of no use, so that others are not made
// from it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzzing {

inline constexpr int notKept = -1;

// Ends the run where something that must hold does not.
inline void require(bool holds, std::source_location where = std::source_location::current())
{
    if (holds)
        return;
    std::fprintf(stderr, "%s:%u: does not hold\n", where.file_name(),
                 static_cast<unsigned>(where.line()));
    std::abort();
}

// Every pixel premultiplied, and opaque where the image says so.
inline void requireSound(const SkinKit::Image& image)
{
    using namespace SkinKit;
    for (int y = 0; y < image.height(); ++y)
        for (const Pixel pixel : image.row(y)) {
            const unsigned alpha = alphaOf(pixel);
            require(std::max({redOf(pixel), greenOf(pixel), blueOf(pixel)}) <= alpha &&
                    (alpha == 255 || !image.isOpaque()));
        }
}

// The same bytes with the checksums of all PNG files in them corrected: without it nearly every
// change to one would end at a checksum.
inline SkinKit::ByteBuffer withPNGChecksums(SkinKit::ByteView bytes)
{
    constexpr std::string_view signature = "\x89PNG\r\n\x1A\n";
    constexpr std::size_t frame = 12; // a chunk's length and name, and its checksum
    SkinKit::ByteBuffer result(bytes.begin(), bytes.end());
    const std::string_view text = SkinKit::asText(result);
    for (auto at = text.find(signature); at != text.npos; at = text.find(signature, at)) {
        at += signature.size();
        while (at + frame <= result.size()) {
            std::size_t length = 0;
            for (std::size_t i = 0; i < 4; ++i)
                length = length << 8 | result[at + i];
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
