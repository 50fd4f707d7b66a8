#include "SkinKit/Base/HTMLText.h"
#include "SkinKit/Base/Markdown.h"
#include "SkinKit/Base/TerminalText.h"
#include "SkinKit/Base/Unicode.h"
#include "fuzz/Fuzzing.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

using namespace SkinKit;

bool hasInvisibles(std::string_view text)
{
    while (!text.empty())
        if (Unicode::isInvisible(Unicode::takeCodePoint(text)))
            return true;
    return false;
}

bool isWellFormed(const std::string& text)
{
    return Unicode::fromUTF8(asBytes(text)).has_value();
}

// Character references resolved.
std::string unescaped(std::string_view html)
{
    struct Reference {
        std::string_view text;
        char character;
    };
    constexpr Reference references[] = {
        {"&amp;",  '&' },
        {"&lt;",   '<' },
        {"&gt;",   '>' },
        {"&quot;", '"' },
        {"&#39;",  '\''}
    };
    std::string text;
    while (!html.empty()) {
        const auto found = std::ranges::find_if(references, [&](const Reference& reference) {
            return html.starts_with(reference.text);
        });
        const bool isReference = found != std::end(references);
        fuzzing::require(isReference || html[0] != '&');
        text += isReference ? found->character : html[0];
        html.remove_prefix(isReference ? found->text.size() : 1);
    }
    return text;
}

// No bar that would end the cell, nor a bracket that would start a link.
void requireCell(const std::string& cell)
{
    fuzzing::require(isWellFormed(cell) && !hasInvisibles(cell));
    fuzzing::require(cell.find_first_of("<>") == cell.npos);
    for (std::size_t i = 0; i < cell.size(); ++i) {
        if (cell[i] == '\\')
            ++i;
        else
            fuzzing::require(!std::string_view("|`*[]~$@").contains(cell[i]));
    }
}

}

// Text of unknown origin on its way to a terminal, a page and a report.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ByteView bytes(data, size);
    const std::string text = Unicode::toValidUTF8(bytes);

    const std::string visible = TerminalText::visible(asText(bytes));
    fuzzing::require(isWellFormed(visible) && !hasInvisibles(visible));
    fuzzing::require(visible == text || hasInvisibles(text));

    const std::string html = HTMLText::escaped(asText(bytes), HTMLText::Apostrophe::escaped);
    fuzzing::require(html.find_first_of("<>\"'") == html.npos && unescaped(html) == text);

    requireCell(Markdown::cell(text));
    // The target of a link ends where it is closed.
    const std::string link = Markdown::link("a", text);
    if (link == "a")
        return 0;
    fuzzing::require(Unicode::lowercased(link).starts_with("[a](http") && link.ends_with(')') &&
                     link.find_first_of(" ()<>\"|\\\r\n", 4) == link.size() - 1);
    return 0;
}
