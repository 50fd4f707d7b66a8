#include "SkinKit/Base/TerminalText.h"

#include "SkinKit/Base/Unicode.h"

#include <cstdio>

namespace SkinKit::TerminalText {
namespace {

std::string spelledOut(char32_t codePoint)
{
    switch (codePoint) {
    case U'\n': return "\\n";
    case U'\r': return "\\r";
    case U'\t': return "\\t";
    default: break;
    }
    char text[16];
    const char* const format = codePoint < 0x100     ? "\\x%02X"
                               : codePoint < 0x10000 ? "\\u%04X"
                                                     : "\\U%08X";
    std::snprintf(text, sizeof text, format, static_cast<unsigned>(codePoint));
    return text;
}

}

std::string visible(std::string_view text)
{
    const std::string repaired = Unicode::toValidUTF8(asBytes(text));
    std::string result;
    for (std::string_view rest = repaired; !rest.empty();) {
        const char32_t codePoint = Unicode::takeCodePoint(rest);
        if (Unicode::isInvisible(codePoint))
            result += spelledOut(codePoint);
        else
            Unicode::append(result, codePoint);
    }
    return result;
}

}
