#include "SkinKit/Base/HTMLText.h"

#include "SkinKit/Base/Unicode.h"

namespace SkinKit::HTMLText {

std::string escaped(std::string_view text, Apostrophe apostrophe)
{
    std::string result;
    for (const char c : Unicode::toValidUTF8(asBytes(text))) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else if (c == '>')
            result += "&gt;";
        else if (c == '"')
            result += "&quot;";
        else if (c == '\'' && apostrophe == Apostrophe::escaped)
            result += "&#39;";
        else
            result += c;
    }
    return result;
}

}
