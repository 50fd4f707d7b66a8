#include "SkinKit/Graphics/PNGCodec.h"
#include "fuzz/Fuzzing.h"

#include <algorithm>
#include <cstring>
#include <string>

// A small image of the input's bytes, encoded and decoded again, alone and with a remark.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    if (size < 5)
        return 0;
    const Size imageSize{1 + data[0] % 32, static_cast<int>((size - 1) / 4) / (1 + data[0] % 32)};
    if (imageSize.isEmpty())
        return 0;
    auto pixels = PixelBuffer::uninitialized(imageSize);
    std::memcpy(pixels.data(), data + 1, pixels.count() * sizeof(Pixel));
    for (Pixel& pixel : std::span(pixels.data(), pixels.count()))
        pixel = premultiply(pixel);

    const Image image(std::move(pixels), Image::Alpha::any);
    const auto bytes = PNGCodec::encode(image);
    fuzzing::require(bytes.has_value() && PNGCodec::encode(image) == bytes);
    const PNGCodec::Limits exact{.maxSide = std::max(imageSize.width, imageSize.height),
                                 .maxPixels = image.width() * image.height()};
    const auto decoded = PNGCodec::decode(*bytes, exact);
    fuzzing::require(decoded && *decoded == image);

    const std::string_view remark = asText({data, size}).substr(0, 100);
    const PNGCodec::Text text{std::string(remark.substr(0, remark.find('='))), std::string(remark)};
    const auto remarked = PNGCodec::encode(image, {&text, 1});
    if (remarked)
        fuzzing::require(PNGCodec::decode(*remarked, exact) == image);
    return 0;
}
