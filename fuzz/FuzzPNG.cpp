#include "SkinKit/Platform/PNGCodec.h"
#include "fuzz/Fuzzing.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const PNGCodec::Limits limits{.maxSide = 512, .maxPixels = 65'536};
    const auto image = PNGCodec::decode({data, size}, limits);
    if (!image)
        return 0;
    fuzzing::require(image->width() <= limits.maxSide && image->height() <= limits.maxSide &&
                     image->width() * image->height() <= limits.maxPixels);
    for (int y = 0; y < image->height(); ++y)
        for (const Pixel pixel : image->row(y)) {
            const unsigned alpha = alphaOf(pixel);
            fuzzing::require(redOf(pixel) <= alpha && greenOf(pixel) <= alpha &&
                             blueOf(pixel) <= alpha && (alpha == 255 || !image->isOpaque()));
        }
    return 0;
}
