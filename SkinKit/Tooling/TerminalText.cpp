#include "SkinKit/Tooling/TerminalText.h"

#include "SkinKit/Platform/Unicode.h"

#include <cstdio>

namespace SkinKit::TerminalText {
namespace {

// C0, delete and C1, and the two line separators.
bool isControl(char32_t codePoint)
{
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0) || codePoint == 0x2028 ||
           codePoint == 0x2029;
}

std::string spelledOut(char32_t codePoint)
{
    switch (codePoint) {
    case U'\n': return "\\n";
    case U'\r': return "\\r";
    case U'\t': return "\\t";
    default: break;
    }
    char text[16];
    std::snprintf(text, sizeof text, codePoint < 0x100 ? "\\x%02X" : "\\u%04X",
                  static_cast<unsigned>(codePoint));
    return text;
}

}

std::string visible(std::string_view text)
{
    const std::string repaired = Unicode::repaired(asBytes(text));
    std::string result;
    for (std::string_view rest = repaired; !rest.empty();) {
        const char32_t codePoint = Unicode::takeFirst(rest);
        if (isControl(codePoint))
            result += spelledOut(codePoint);
        else
            Unicode::append(result, codePoint);
    }
    return result;
}

}
