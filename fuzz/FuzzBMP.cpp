#include "SkinKit/Graphics/BMPDecoder.h"
#include "fuzz/Fuzzing.h"

#include <cstdlib>
#include <optional>

namespace {

using namespace SkinKit;

// The sides as the header has them, two bytes each in the small one and four in the others.
struct Sides {
    std::int64_t width = 0;
    std::int64_t height = 0;
};

std::optional<Sides> sides(ByteView file)
{
    if (file.size() < 26)
        return std::nullopt;
    const auto word = [&](std::size_t at) { return file[at] | file[at + 1] << 8; };
    const auto number = [&](std::size_t at) {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(word(at)) |
                                         static_cast<std::uint32_t>(word(at + 2)) << 16);
    };
    if (number(14) == 12)
        return Sides{word(18), word(20)};
    return Sides{number(18), std::abs(std::int64_t{number(22)})};
}

}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ByteView file(data, size);
    const auto said = sides(file);
    // A large picture shows nothing that a small one does not, only more slowly; one that is too
    // large is refused at once.
    constexpr std::int64_t largeEnough = 16'384;
    const std::int64_t pixels = said ? said->width * said->height : 0;
    if (pixels > largeEnough && pixels <= BMPDecoder::maxPixels)
        return fuzzing::notKept;

    const auto image = BMPDecoder::decode(file);
    if (!image)
        return 0;
    fuzzing::require(image->isOpaque() && image->width() == said->width &&
                     image->height() == said->height);
    fuzzing::require(image->width() <= BMPDecoder::maxSide &&
                     image->height() <= BMPDecoder::maxSide && pixels <= BMPDecoder::maxPixels);
    for (int y = 0; y < image->height(); ++y)
        for (const Pixel pixel : image->row(y))
            fuzzing::require(alphaOf(pixel) == 255);
    fuzzing::require(BMPDecoder::decode(file) == image);
    return 0;
}
