#include "SkinKit/Formats/VisColorParser.h"
#include "fuzz/Fuzzing.h"

#include <algorithm>
#include <string>

// The visualizer's colours. What was read is written and read again.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    namespace Parser = SkinKit::VisColorParser;
    const auto [colors, count] = Parser::parseCounted(SkinKit::asText({data, size}));
    fuzzing::require(count >= 0 && count <= Parser::colorCount);
    fuzzing::require(
        std::equal(colors.begin() + count, colors.end(), Parser::defaults.begin() + count));
    std::string text;
    for (const auto& [red, green, blue] : std::span(colors).first(static_cast<std::size_t>(count)))
        text +=
            std::to_string(red) + ',' + std::to_string(green) + ',' + std::to_string(blue) + '\n';
    fuzzing::require(Parser::parseCounted(text) == Parser::Result{colors, count});
    return 0;
}
