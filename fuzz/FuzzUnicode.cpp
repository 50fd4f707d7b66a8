#include "SkinKit/Base/Unicode.h"
#include "fuzz/Fuzzing.h"

#include <optional>
#include <string>
#include <string_view>

namespace {

using namespace SkinKit;

bool isWellFormed(std::string_view text)
{
    return Unicode::fromUTF8(asBytes(text)).has_value();
}

std::string fromUTF16(std::u16string_view units)
{
    std::string text;
    for (std::size_t i = 0; i < units.size(); ++i) {
        char32_t codePoint = units[i];
        if (codePoint >= 0xD800 && codePoint < 0xDC00)
            codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (units[++i] - 0xDC00U);
        Unicode::append(text, codePoint);
    }
    return text;
}

// One after the other the characters are the text.
void requireCharacters(std::string_view text)
{
    const std::string_view first = Unicode::firstGraphemes(text, 3);
    std::string_view rest = text;
    for (std::size_t count = 0, taken = 0; !rest.empty(); ++count) {
        const auto character = Unicode::takeGrapheme(rest);
        fuzzing::require(!character.empty() && character.data() == text.data() + taken &&
                         isWellFormed(character));
        taken += character.size();
        fuzzing::require(count != 2 || first.size() == taken);
    }
}

void requireTrimmed(std::string_view text)
{
    const auto trimmed = Unicode::trimmed(text);
    fuzzing::require(isWellFormed(trimmed) && Unicode::trimmed(trimmed) == trimmed &&
                     Unicode::trimmedFront(text).starts_with(trimmed) && text.contains(trimmed));
    if (!trimmed.empty()) {
        std::string_view rest = trimmed;
        fuzzing::require(!Unicode::isWhiteSpace(Unicode::takeCodePoint(rest)));
    }
}

// What maps text to text leaves it well-formed, and has nothing left to do a second time.
template <typename Map>
void requireSettled(const std::string& text, Map map)
{
    const std::string mapped = map(text);
    fuzzing::require(isWellFormed(mapped) && map(mapped) == mapped);
}

}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ByteView bytes(data, size);
    const std::string text = Unicode::toValidUTF8(bytes);
    const auto strict = Unicode::fromUTF8(bytes);
    fuzzing::require(isWellFormed(text) && Unicode::toValidUTF8(asBytes(text)) == text);
    fuzzing::require(strict == (text == asText(bytes) ? std::optional(text) : std::nullopt));
    fuzzing::require(isWellFormed(Unicode::fromCodePage437(bytes)));
    if (const auto windows = Unicode::fromWindows1252(bytes))
        fuzzing::require(isWellFormed(*windows) && Unicode::toUTF16(*windows).size() == size);

    std::string appended;
    for (std::string_view rest = text; !rest.empty();)
        Unicode::append(appended, Unicode::takeCodePoint(rest));
    fuzzing::require(appended == text && fromUTF16(Unicode::toUTF16(text)) == text);
    requireCharacters(text);
    requireTrimmed(text);
    requireSettled(text, Unicode::lowercased);
    requireSettled(text, Unicode::toNFC);
    return 0;
}
