#include "SkinKit/Graphics/PNGCodec.h"
#include "fuzz/Fuzzing.h"
#include "fuzz/PNGChecksums.h"

#include <algorithm>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const PNGCodec::Limits limits{.maxSide = 256, .maxPixels = 16'384};
    const ByteBuffer file = fuzzing::withPNGChecksums({data, size});
    const auto image = PNGCodec::decode(file, limits);
    if (!image)
        return 0;
    fuzzing::require(image->size() == PNGCodec::size(file));
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
