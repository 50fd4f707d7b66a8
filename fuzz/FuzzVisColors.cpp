#include "SkinKit/Parsers/VisColorParser.h"
#include "fuzz/Fuzzing.h"

#include <algorithm>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    namespace Parser = SkinKit::VisColorParser;
    const auto result = Parser::parseCounted(SkinKit::ByteView(data, size));
    fuzzing::require(result.parsedCount >= 0 && result.parsedCount <= Parser::colorCount);
    fuzzing::require(std::equal(result.colors.begin() + result.parsedCount, result.colors.end(),
                                Parser::defaults.begin() + result.parsedCount));
    return 0;
}
