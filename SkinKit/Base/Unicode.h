#pragma once

#include "SkinKit/Base/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Text is UTF-8 in std::string throughout; these are the few things that need to look inside it.
// Plain ASCII, which most of it is, takes a short way through each.
namespace SkinKit::Unicode {

inline constexpr char32_t replacementCharacter = U'\uFFFD';

// The bytes read as UTF-8, each ill-formed sequence replaced by U+FFFD (one for each maximal part
// of a well-formed one). A byte order mark is a character like any other.
std::string toValidUTF8(ByteView bytes);

// The bytes read as UTF-8, or nothing when any of them is ill-formed.
std::optional<std::string> fromUTF8(ByteView bytes);
// The bytes read as code page 1252 (Windows, Western Europe), or nothing when one of them is among
// the five that it leaves undefined.
std::optional<std::string> fromWindows1252(ByteView bytes);

// Text in the code page that DOS began with, where control characters are signs, as UTF-8.
std::string fromCodePage437(ByteView bytes);

// The length in bytes of the character at the front of non-empty text; 0 when it is ill-formed.
std::size_t characterLength(std::string_view text);
// Takes the first code point off well-formed, non-empty text.
char32_t takeCodePoint(std::string_view& text);
void append(std::string& text, char32_t codePoint);

// A character as a reader sees it: a letter with its marks, a whole emoji (an extended grapheme
// cluster). The first one off non-empty text, and the first `count` as far as there are so many.
std::string_view takeGrapheme(std::string_view& text);
std::string_view firstGraphemes(std::string_view text, std::size_t count);

// Unicode lower case, independent of language.
std::string lowercased(std::string_view text);
// Canonical composition (NFC).
std::string toNFC(std::string_view text);
std::u16string toUTF16(std::string_view text);

// The Unicode classes White_Space and decimal digit (Nd).
bool isWhiteSpace(char32_t codePoint);
bool isDigit(char32_t codePoint);
// Whether a character does not show, but can change what a reader or a terminal makes of the text
// around it: controls (C0, delete, C1), line and paragraph separators, interlinear annotation, and
// what Unicode calls default ignorable (bidirectional controls, joiners, spaces of no width,
// variation selectors, tags).
bool isInvisible(char32_t codePoint);

// Without white space, line ends among it, in front, or at both ends.
std::string_view trimmedFront(std::string_view text);
std::string_view trimmed(std::string_view text);

}
