#include "SkinKit/Parsers/PlaylistStyleParser.h"
#include "fuzz/Fuzzing.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto result = SkinKit::PlaylistStyleParser::parse(SkinKit::ByteView(data, size));
    fuzzing::require(!result.style.font.empty() && result.fallbacks.size() <= 4);
    for (const auto& note : result.fallbacks)
        fuzzing::require(note.starts_with("pledit.txt ") && note.ends_with("' unusable; default"));
    return 0;
}
