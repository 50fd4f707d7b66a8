#include "SkinKit/Formats/VisColorParser.h"
#include "fuzz/Fuzzing.h"

// The visualizer's colours: the defaults from the count on.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    namespace Parser = SkinKit::VisColorParser;
    const auto [colors, count] = Parser::parseCounted(SkinKit::asText({data, size}));
    fuzzing::require(count >= 0 && count <= Parser::colorCount);
    fuzzing::require(
        std::equal(colors.begin() + count, colors.end(), Parser::defaults.begin() + count));
    return 0;
}
