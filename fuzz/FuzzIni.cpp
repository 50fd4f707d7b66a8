#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Formats/IniParser.h"
#include "fuzz/Fuzzing.h"

#include <string>

// An INI file in any encoding. What was read of it is written and read again.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const auto sections = IniParser::parse(Unicode::toValidUTF8({data, size}));
    std::string text;
    for (const auto& [name, section] : sections) {
        fuzzing::require(Unicode::lowercased(Unicode::trimmed(name)) == name);
        text += "[" + (name.empty() ? " " : name) + "]\n";
        for (const auto& [key, value] : section) {
            fuzzing::require(!key.empty() && Unicode::lowercased(Unicode::trimmed(key)) == key);
            fuzzing::require(value.find_first_of("\r\n") == value.npos);
            text.append(key).append("=\"").append(value).append("\"\n");
        }
    }
    fuzzing::require(IniParser::parse(text) == sections);
    return 0;
}
