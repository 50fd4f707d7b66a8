#include "SkinKit/Base/HTMLText.h"
#include "SkinKit/Base/Markdown.h"
#include "SkinKit/Base/TerminalText.h"
#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Pages/SkinPreviewPage.h"
#include "fuzz/Fuzzing.h"

#include <string>

namespace {

using namespace SkinKit;

// Well-formed, and without any of the ASCII characters given.
bool isTextWithout(std::string_view forbidden, std::string_view text)
{
    return Unicode::fromUTF8(asBytes(text)) && text.find_first_of(forbidden) == text.npos;
}

bool hasInvisibles(std::string_view text)
{
    while (!text.empty())
        if (Unicode::isInvisible(Unicode::takeCodePoint(text)))
            return true;
    return false;
}

// Text of unknown origin on its way to a terminal, a page and a report.
void requireHarmless(std::string_view bytes, const std::string& text)
{
    const std::string visible = TerminalText::visible(bytes);
    const std::string html = HTMLText::escaped(bytes, HTMLText::Apostrophe::escaped);
    const std::string cell = Markdown::cell(text);
    fuzzing::require(isTextWithout("", visible) && !hasInvisibles(visible) &&
                     isTextWithout("<>\"'", html) && isTextWithout("<>", cell) &&
                     !hasInvisibles(cell));
    // No bar that would end the cell, nor a bracket that would start a link.
    for (std::size_t i = 0; i < cell.size(); ++i)
        if (cell[i] == '\\')
            ++i;
        else
            fuzzing::require(!std::string_view("|`*[]~$@").contains(cell[i]));
    // The target of a link ends where it is closed.
    const std::string link = Markdown::link("a", text);
    fuzzing::require(link == "a" || (Unicode::lowercased(link).starts_with("[a](http") &&
                                     link.find_first_of(" ()<>\"|\\\r\n", 4) == link.size() - 1));
}

// A skin's read-me, whole or cut.
void requireReadme(const ByteBuffer& content)
{
    SkinArchive::Table files{
        {"readme.txt", content}
    };
    const auto shown = SkinPreviewPage::readme(SkinArchive(std::move(files)));
    fuzzing::require(!shown ||
                     (isTextWithout("", *shown) && shown->size() <= 20'480 + 3 && !shown->empty()));
}

}

// Text in any encoding: mapped, taken apart, shown. Its first byte says where a long one is cut.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ByteBuffer bytes(data, data + size);
    const std::string text = Unicode::toValidUTF8(bytes);
    for (const auto& mapped :
         {text, Unicode::fromCodePage437(bytes), Unicode::fromWindows1252(bytes).value_or(""),
          Unicode::lowercased(text), Unicode::toNFC(text), std::string(Unicode::trimmed(text))})
        fuzzing::require(isTextWithout("", mapped));
    fuzzing::require(Unicode::fromUTF8(bytes).has_value() == (text == asText(bytes)));
    std::string characters;
    for (std::string_view rest = text; !rest.empty();)
        characters += Unicode::takeGrapheme(rest);
    fuzzing::require(characters == text);
    requireHarmless(asText(bytes), text);
    requireReadme(bytes);
    if (size > 1)
        bytes.insert(bytes.begin(), 20'480 - data[0] % size, 'a');
    requireReadme(bytes);
    return 0;
}
