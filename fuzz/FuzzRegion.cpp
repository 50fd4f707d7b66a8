#include "SkinKit/Parsers/RegionParser.h"
#include "fuzz/Fuzzing.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const SkinRegion region = RegionParser::parse(ByteView(data, size));
    for (const auto& [name, polygons] : region.sections) {
        for (const auto& polygon : polygons)
            fuzzing::require(!polygon.empty());
        for (const int scale : {1, 3}) {
            const auto mask = SkinRegion::maskImage(polygons, {64, 16}, scale);
            fuzzing::require(mask && mask->size() == Size{64 * scale, 16 * scale});
        }
    }
    return 0;
}
