#include "SkinKit/Graphics/PNGCodec.h"
#include "fuzz/Fuzzing.h"

#include <string>

// A PNG file. What was decoded is encoded, with a remark where it may have one, and decoded again.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const PNGCodec::Limits limits{.maxSide = 256, .maxPixels = 16'384};
    const ByteBuffer file = fuzzing::withPNGChecksums({data, size});
    const auto image = PNGCodec::decode(file, limits);
    if (!image)
        return 0;
    fuzzing::require(image->size() == PNGCodec::size(file) && image->width() <= limits.maxSide &&
                     image->height() <= limits.maxSide &&
                     image->width() * image->height() <= limits.maxPixels);
    fuzzing::requireSound(*image);
    fuzzing::require(PNGCodec::decode(file, limits) == image);

    const auto encoded = PNGCodec::encode(*image);
    fuzzing::require(encoded && PNGCodec::decode(*encoded, limits) == image);
    const PNGCodec::Text text{"Remark", std::string(asText(file).substr(0, 100))};
    const auto remarked = PNGCodec::encode(*image, {&text, 1});
    fuzzing::require(!remarked || PNGCodec::decode(*remarked, limits) == image);
    return 0;
}
