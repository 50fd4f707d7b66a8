#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Formats/IniParser.h"
#include "SkinKit/Formats/PlaylistStyleParser.h"
#include "fuzz/Fuzzing.h"

// An INI file in any encoding, as any and as a playlist's style.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    for (const auto& [name, section] : IniParser::parse(Unicode::toValidUTF8({data, size}))) {
        fuzzing::require(Unicode::lowercased(Unicode::trimmed(name)) == name);
        for (const auto& [key, value] : section)
            fuzzing::require(!key.empty() && Unicode::lowercased(Unicode::trimmed(key)) == key &&
                             value.find_first_of("\r\n") == value.npos);
    }
    const auto [style, notes] = PlaylistStyleParser::parse(asText({data, size}));
    fuzzing::require(!style.font.empty() && notes.size() <= 4);
    for (const auto& note : notes)
        fuzzing::require(note.starts_with("pledit.txt ") && note.ends_with("' unusable; default"));
    return 0;
}
