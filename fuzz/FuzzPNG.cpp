#include "SkinKit/Platform/PNGCodec.h"
#include "fuzz/Fuzzing.h"

#include <zlib.h>

#include <algorithm>

namespace {

using namespace SkinKit;

// The same file with the checksum of each chunk put right: without it nearly every change would end
// at a checksum.
ByteBuffer withChecksums(ByteView bytes)
{
    constexpr std::size_t signature = 8;
    constexpr std::size_t frame = 12; // a chunk's length and name, and its checksum
    const auto number = [](const std::uint8_t* at) {
        return static_cast<std::size_t>(at[0]) << 24 | static_cast<std::size_t>(at[1]) << 16 |
               static_cast<std::size_t>(at[2]) << 8 | at[3];
    };
    ByteBuffer result(bytes.begin(), bytes.end());
    for (std::size_t at = signature; at + frame <= result.size();) {
        const std::size_t length = number(&result[at]);
        if (length > result.size() - at - frame)
            break;
        const auto checksum = crc32(0, &result[at + 4], static_cast<unsigned>(length + 4));
        for (std::size_t i = 0; i < 4; ++i)
            result[at + 8 + length + i] = static_cast<std::uint8_t>(checksum >> (24 - 8 * i));
        at += frame + length;
    }
    return result;
}

}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const PNGCodec::Limits limits{.maxSide = 256, .maxPixels = 16'384};
    const ByteBuffer file = withChecksums({data, size});
    const auto image = PNGCodec::decode(file, limits);
    if (!image)
        return 0;
    // The header is the first chunk; its sides begin behind the signature and the chunk's frame.
    const auto side = [&](std::size_t at) { return file[at + 2] << 8 | file[at + 3]; };
    fuzzing::require(image->size() == Size{side(16), side(20)});
    fuzzing::require(image->width() <= limits.maxSide && image->height() <= limits.maxSide &&
                     image->width() * image->height() <= limits.maxPixels);
    for (int y = 0; y < image->height(); ++y)
        for (const Pixel pixel : image->row(y)) {
            const unsigned alpha = alphaOf(pixel);
            fuzzing::require(std::max({redOf(pixel), greenOf(pixel), blueOf(pixel)}) <= alpha &&
                             (alpha == 255 || !image->isOpaque()));
        }
    fuzzing::require(PNGCodec::decode(file, limits) == image);
    return 0;
}
