#include "SkinKit/Formats/RegionParser.h"
#include "fuzz/Fuzzing.h"

// A region file, and the masks of its first shapes: white or clear, of the size asked for.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const SkinRegion region = RegionParser::parse(asText({data, size}));
    int drawn = 0;
    for (const auto& [name, polygons] : region.sections) {
        for (const auto& polygon : polygons)
            fuzzing::require(!polygon.empty());
        if (++drawn > 4)
            continue;
        const auto mask = SkinRegion::maskImage(polygons, {64, 16}, 3);
        fuzzing::require(mask && mask->size() == Size{192, 48} &&
                         SkinRegion::maskImage(polygons, {64, 16}, 3) == mask);
        for (int y = 0; y < mask->height(); ++y)
            for (const Pixel pixel : mask->row(y))
                fuzzing::require(pixel == packPixel(255, 255, 255) || pixel == Pixel{});
    }
    return 0;
}
