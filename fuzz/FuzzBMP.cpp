#include "SkinKit/Parsers/BMPDecoder.h"
#include "fuzz/Fuzzing.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const auto image = BMPDecoder::decode({data, size});
    if (!image)
        return 0;
    fuzzing::require(image->isOpaque());
    fuzzing::require(image->width() <= BMPDecoder::maxSide &&
                     image->height() <= BMPDecoder::maxSide &&
                     std::int64_t{image->width()} * image->height() <= BMPDecoder::maxPixels);
    // The header's width: two bytes in the small header, four in the others.
    const int width = data[14] == 12 ? data[18] | data[19] << 8
                                     : data[18] | data[19] << 8 | data[20] << 16 | data[21] << 24;
    fuzzing::require(image->width() == width);
    for (int y = 0; y < image->height(); ++y)
        for (const Pixel pixel : image->row(y))
            fuzzing::require(alphaOf(pixel) == 255);
    return 0;
}
