#include "SkinKit/Platform/PNGCodec.h"
#include "fuzz/Fuzzing.h"

#include <cstring>

// A small image of the input's bytes, encoded and decoded again.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    if (size < 5)
        return 0;
    const Size imageSize{1 + data[0] % 32, static_cast<int>((size - 1) / 4) / (1 + data[0] % 32)};
    if (imageSize.isEmpty())
        return 0;
    auto pixels = PixelBuffer::uncleared(imageSize);
    std::memcpy(pixels.data(), data + 1, pixels.count() * sizeof(Pixel));
    for (Pixel& pixel : std::span(pixels.data(), pixels.count()))
        pixel = premultiply(pixel);

    const Image image(std::move(pixels), Image::Alpha::any);
    const auto bytes = PNGCodec::encode(image);
    fuzzing::require(bytes.has_value());
    const auto decoded = PNGCodec::decode(*bytes, {.maxSide = 4096, .maxPixels = 1 << 23});
    fuzzing::require(decoded && *decoded == image);
    return 0;
}
