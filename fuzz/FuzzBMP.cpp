#include "SkinKit/Graphics/BMPDecoder.h"
#include "fuzz/Fuzzing.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const auto image = BMPDecoder::decode({data, size});
    if (!image)
        return 0;
    const std::int64_t pixels = std::int64_t{image->width()} * image->height();
    fuzzing::require(image->isOpaque() && image->width() <= BMPDecoder::maxSide &&
                     image->height() <= BMPDecoder::maxSide && pixels <= BMPDecoder::maxPixels);
    // A large image shows nothing that a small one does not, only more slowly.
    constexpr std::int64_t largeEnough = 16'384;
    if (pixels > largeEnough)
        return fuzzing::notKept;
    fuzzing::requireSound(*image);
    fuzzing::require(BMPDecoder::decode({data, size}) == image);
    return 0;
}
