#include "SkinKit/Base/Markdown.h"

#include "SkinKit/Base/Encodings.h"
#include "SkinKit/Base/Unicode.h"

namespace SkinKit::Markdown {
namespace {

bool isLetterOrDigit(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c < 0;
}

bool isEscaped(char32_t c)
{
    return std::u32string_view(U"\\|`*[]~$@").contains(c);
}

}

std::string cell(std::string_view text)
{
    constexpr std::size_t maxCharacters = 4000;
    std::string result;
    for (std::size_t count = 0; !text.empty(); ++count) {
        if (count == maxCharacters)
            return result + "…";
        const char32_t c = Unicode::takeCodePoint(text);
        // An underscore within a word is one.
        const bool isWithinWord = !result.empty() && isLetterOrDigit(result.back()) &&
                                  !text.empty() && isLetterOrDigit(text.front());
        if (c == U'<')
            result += "&lt;";
        else if (c == U'>')
            result += "&gt;";
        else if (c == U'&')
            result += "&amp;";
        else if (c == U':' && text.starts_with("//"))
            result += "\\:"; // no link
        else if (c == U'.' && result.ends_with("www"))
            result += "\\.";
        else if (Unicode::isInvisible(c))
            result += ' ';
        else if (isEscaped(c) || (c == U'_' && !isWithinWord))
            Unicode::append(result += '\\', c);
        else
            Unicode::append(result, c);
    }
    return result;
}

std::string link(std::string_view text, std::string_view url)
{
    const std::string scheme = Unicode::lowercased(url.substr(0, url.find("://")));
    if (scheme != "https" && scheme != "http")
        return cell(text);
    constexpr std::string_view plain = "-._~:/?#@!$'+,;=%";
    std::string target;
    for (const char c : url) {
        if ((isLetterOrDigit(c) && c >= 0) || plain.contains(c)) {
            target += c;
        } else if (c == '&') {
            target += "&amp;";
        } else {
            target += '%';
            Hex::append(target, static_cast<std::uint8_t>(c), Hex::upperCase);
        }
    }
    return std::string("[").append(cell(text)).append("](").append(target).append(")");
}

}
