// UTF-8 is checked and two code pages are read by hand: utf8proc does not report which parts of
// ill-formed text to replace, and the C library's iconv loads its tables at run time, which a
// statically linked program can't rely on.
#include "SkinKit/Base/Unicode.h"

#include "SkinKit/Base/Check.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <compare>
#include <cstring>
#include <iterator>
#include <span>

namespace SkinKit::Unicode {
namespace {

// How many bytes at the front are ASCII. Looks at eight at a time, since texts may be long.
std::size_t lengthOfASCII(std::string_view text)
{
    constexpr std::uint64_t upperHalf = 0x8080808080808080;
    std::size_t length = 0;
    for (std::uint64_t word = 0; text.size() - length >= sizeof word; length += sizeof word) {
        std::memcpy(&word, text.data() + length, sizeof word);
        if ((word & upperHalf) != 0)
            break;
    }
    while (length < text.size() && static_cast<unsigned char>(text[length]) < 0x80)
        ++length;
    return length;
}

bool isASCII(std::string_view text)
{
    return lengthOfASCII(text) == text.size();
}

// Takes the ASCII off the front.
std::string_view takeASCII(ByteView& bytes)
{
    const auto taken = asText(bytes).substr(0, lengthOfASCII(asText(bytes)));
    bytes = bytes.subspan(taken.size());
    return taken;
}

constexpr bool isWithin(std::uint8_t byte, std::uint8_t low, std::uint8_t high)
{
    return byte >= low && byte <= high;
}

// What may follow a first byte: the well-formed sequences, as a table of byte ranges.
struct Sequence {
    std::uint8_t firstLow, firstHigh;
    std::uint8_t secondLow, secondHigh; // later bytes are 80 … BF
    int length;
};
// clang-format off
constexpr Sequence sequences[] = {
    // first       second      length
    {0x00, 0x7F,  0x00, 0x00,  1},
    {0xC2, 0xDF,  0x80, 0xBF,  2},
    {0xE0, 0xE0,  0xA0, 0xBF,  3},  // shorter forms refused
    {0xE1, 0xEC,  0x80, 0xBF,  3},
    {0xED, 0xED,  0x80, 0x9F,  3},  // surrogates refused
    {0xEE, 0xEF,  0x80, 0xBF,  3},
    {0xF0, 0xF0,  0x90, 0xBF,  4},  // shorter forms refused
    {0xF1, 0xF3,  0x80, 0xBF,  4},
    {0xF4, 0xF4,  0x80, 0x8F,  4},  // beyond U+10FFFF refused
};
// clang-format on

struct Part {
    std::size_t length; // bytes taken, at least 1
    bool wellFormed;
};

// The well-formed sequence, or the longest start of one, at the front of non-empty bytes.
Part firstPart(ByteView bytes)
{
    const auto sequence = std::ranges::find_if(sequences, [first = bytes[0]](const Sequence& s) {
        return isWithin(first, s.firstLow, s.firstHigh);
    });
    if (sequence == std::end(sequences))
        return {1, false};

    const auto length = static_cast<std::size_t>(sequence->length);
    for (std::size_t i = 1; i < length; ++i) {
        const bool fits = i < bytes.size() &&
                          (i == 1 ? isWithin(bytes[1], sequence->secondLow, sequence->secondHigh)
                                  : isWithin(bytes[i], 0x80, 0xBF));
        if (!fits)
            return {i, false};
    }
    return {length, true};
}

// Gives `take` the text in pieces, with U+FFFD in the place of each ill-formed part.
template <typename Take>
void takeRepaired(ByteView bytes, Take take)
{
    while (true) {
        take(takeASCII(bytes));
        if (bytes.empty())
            return;
        const Part part = firstPart(bytes);
        take(part.wellFormed ? asText(bytes.first(part.length)) : "\xEF\xBF\xBD");
        bytes = bytes.subspan(part.length);
    }
}

bool isWellFormed(ByteView bytes)
{
    for (takeASCII(bytes); !bytes.empty(); takeASCII(bytes)) {
        const Part part = firstPart(bytes);
        if (!part.wellFormed)
            return false;
        bytes = bytes.subspan(part.length);
    }
    return true;
}

// What code page 1252 has in the place of Latin-1's second set of control characters, 80 … 9F.
// clang-format off
constexpr char32_t undefined = 0;
constexpr std::array<char32_t, 32> windows1252{
    0x20AC, undefined, 0x201A, 0x0192, 0x201E, 0x2026,    0x2020, 0x2021,
    0x02C6, 0x2030,    0x0160, 0x2039, 0x0152, undefined, 0x017D, undefined,
    undefined, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,    0x2013, 0x2014,
    0x02DC, 0x2122,    0x0161, 0x203A, 0x0153, undefined, 0x017E, 0x0178,
};
// clang-format on

// What code page 437 has other than ASCII, a row for each 16: signs where ASCII has its control
// characters, and the upper half.
constexpr std::u16string_view lowerSigns = u" ☺☻♥♦♣♠•◘○◙♂♀♪♫☼"
                                           u"►◄↕‼¶§▬↨↑↓→←∟↔▲▼";
constexpr std::u16string_view upperSigns = u"ÇüéâäàåçêëèïîìÄÅ"
                                           u"ÉæÆôöòûùÿÖÜ¢£¥₧ƒ"
                                           u"áíóúñÑªº¿⌐¬½¼¡«»"
                                           u"░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
                                           u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧"
                                           u"╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
                                           u"αßΓπΣσµτΦΘΩδ∞φε∩"
                                           u"≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";
static_assert(lowerSigns.size() == 32 && upperSigns.size() == 128);

using CodePoints = std::vector<utf8proc_int32_t>;

constexpr auto composing = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE);

// Every character taken apart into its letter and its marks.
CodePoints decomposed(std::string_view text)
{
    CodePoints codePoints;
    while (!text.empty()) {
        utf8proc_int32_t parts[8]; // four is the most that the standard has
        int lastClass = 0;
        const auto count =
            utf8proc_decompose_char(static_cast<utf8proc_int32_t>(takeCodePoint(text)), parts,
                                    std::ssize(parts), composing, &lastClass);
        check(count >= 0 && count <= std::ssize(parts), "a character of too many parts");
        codePoints.insert(codePoints.end(), parts, parts + count);
    }
    return codePoints;
}

struct Mark {
    int markClass;
    std::size_t place;
    utf8proc_int32_t codePoint;

    auto operator<=>(const Mark&) const = default;
};

// The canonical order: the marks behind a letter by their class, those of one class as they come.
// The library's own way of sorting them takes seconds for some ten thousand marks in a row, which
// the titles of songs may have.
void putMarksInOrder(CodePoints& codePoints)
{
    std::vector<Mark> marks; // behind the last letter
    const auto writeSorted = [&](std::size_t end) {
        std::ranges::sort(marks);
        for (std::size_t i = 0; i < marks.size(); ++i)
            codePoints[end - marks.size() + i] = marks[i].codePoint;
        marks.clear();
    };
    for (std::size_t i = 0; i < codePoints.size(); ++i) {
        const int markClass = utf8proc_get_property(codePoints[i])->combining_class;
        if (markClass != 0)
            marks.push_back({markClass, i, codePoints[i]});
        else
            writeSorted(i);
    }
    writeSorted(codePoints.size());
}

}

std::string toValidUTF8(ByteView bytes)
{
    // In two passes: growing the text would take twice its memory, which may be 24 MiB.
    std::size_t size = 0;
    takeRepaired(bytes, [&](std::string_view piece) { size += piece.size(); });
    std::string text;
    text.reserve(size);
    takeRepaired(bytes, [&](std::string_view piece) { text += piece; });
    return text;
}

std::optional<std::string> fromUTF8(ByteView bytes)
{
    return isWellFormed(bytes) ? std::optional<std::string>(asText(bytes)) : std::nullopt;
}

std::optional<std::string> fromWindows1252(ByteView bytes)
{
    std::string text;
    text.reserve(bytes.size());
    while (true) {
        text += takeASCII(bytes);
        if (bytes.empty())
            return text;
        const std::uint8_t byte = bytes.front();
        const bool isControl = byte <= 0x9F;
        const char32_t codePoint = isControl ? windows1252[byte - 0x80U] : byte;
        if (isControl && codePoint == undefined)
            return std::nullopt;
        append(text, codePoint);
        bytes = bytes.subspan(1);
    }
}

std::string fromCodePage437(ByteView bytes)
{
    std::string text;
    for (const std::uint8_t byte : bytes)
        append(text, byte < 0x20   ? lowerSigns[byte]
                     : byte < 0x80 ? byte
                                   : upperSigns[byte - 0x80U]);
    return text;
}

std::size_t characterLength(std::string_view text)
{
    const Part part = firstPart(asBytes(text));
    return part.wellFormed ? part.length : 0;
}

char32_t takeCodePoint(std::string_view& text)
{
    if (const auto byte = static_cast<unsigned char>(text[0]); byte < 0x80) {
        text.remove_prefix(1);
        return byte;
    }
    utf8proc_int32_t codePoint = 0;
    const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                         static_cast<utf8proc_ssize_t>(text.size()), &codePoint);
    if (length <= 0) {
        text.remove_prefix(1);
        return replacementCharacter;
    }
    text.remove_prefix(static_cast<std::size_t>(length));
    return static_cast<char32_t>(codePoint);
}

void append(std::string& text, char32_t codePoint)
{
    utf8proc_uint8_t bytes[4];
    const auto length = utf8proc_encode_char(static_cast<utf8proc_int32_t>(codePoint), bytes);
    text.append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length));
}

std::string_view takeGrapheme(std::string_view& text)
{
    const std::string_view whole = text;
    const auto taken = [&] { return whole.substr(0, whole.size() - text.size()); };
    char32_t last = takeCodePoint(text);
    utf8proc_int32_t state = 0;
    while (!text.empty()) {
        std::string_view rest = text;
        const char32_t next = takeCodePoint(rest);
        const bool isASCII = last < 0x80 && next < 0x80 && last != '\r';
        if (isASCII ||
            utf8proc_grapheme_break_stateful(static_cast<utf8proc_int32_t>(last),
                                             static_cast<utf8proc_int32_t>(next), &state))
            return taken();
        last = next;
        text = rest;
    }
    return taken();
}

std::string_view firstGraphemes(std::string_view text, std::size_t count)
{
    std::string_view rest = text;
    for (std::size_t i = 0; i < count && !rest.empty(); ++i)
        takeGrapheme(rest);
    return text.substr(0, text.size() - rest.size());
}

std::string lowercased(std::string_view text)
{
    std::string lower;
    lower.reserve(text.size());
    if (isASCII(text)) {
        for (const char c : text)
            lower += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        return lower;
    }
    while (!text.empty()) {
        const char32_t codePoint = takeCodePoint(text);
        if (codePoint == U'\u0130') // the one letter whose lower case is two code points
            lower += "i\u0307";
        else
            append(lower, static_cast<char32_t>(
                              utf8proc_tolower(static_cast<utf8proc_int32_t>(codePoint))));
    }
    return lower;
}

std::string toNFC(std::string_view text)
{
    if (isASCII(text))
        return std::string(text);

    auto codePoints = decomposed(text);
    putMarksInOrder(codePoints);
    const auto length = utf8proc_normalize_utf32(
        codePoints.data(), static_cast<utf8proc_ssize_t>(codePoints.size()), composing);
    std::string result;
    for (const auto codePoint : std::span(codePoints).first(static_cast<std::size_t>(length)))
        append(result, static_cast<char32_t>(codePoint));
    return result;
}

std::u16string toUTF16(std::string_view text)
{
    std::u16string units;
    units.reserve(text.size());
    while (!text.empty()) {
        const char32_t codePoint = takeCodePoint(text);
        if (codePoint < 0x10000) {
            units += static_cast<char16_t>(codePoint);
        } else {
            units += static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10));
            units += static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF));
        }
    }
    return units;
}

bool isWhiteSpace(char32_t codePoint)
{
    if (codePoint < 0x80)
        return codePoint == ' ' || (codePoint >= '\t' && codePoint <= '\r');
    switch (utf8proc_category(static_cast<utf8proc_int32_t>(codePoint))) {
    case UTF8PROC_CATEGORY_ZS:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP: return true;
    default: return codePoint == 0x85;
    }
}

bool isDigit(char32_t codePoint)
{
    if (codePoint < 0x80)
        return codePoint >= '0' && codePoint <= '9';
    return utf8proc_category(static_cast<utf8proc_int32_t>(codePoint)) == UTF8PROC_CATEGORY_ND;
}

bool isInvisible(char32_t codePoint)
{
    if (codePoint < 0x7F)
        return codePoint < 0x20;
    const auto* const property = utf8proc_get_property(static_cast<utf8proc_int32_t>(codePoint));
    switch (property->category) {
    case UTF8PROC_CATEGORY_CC:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP: return true;
    default: return property->ignorable || (codePoint >= 0xFFF9 && codePoint <= 0xFFFB);
    }
}

std::string_view trimmedFront(std::string_view text)
{
    while (!text.empty()) {
        std::string_view rest = text;
        if (!isWhiteSpace(takeCodePoint(rest)))
            break;
        text = rest;
    }
    return text;
}

std::string_view trimmed(std::string_view text)
{
    text = trimmedFront(text);
    const auto isContinuation = [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
    };
    while (!text.empty()) {
        std::size_t start = text.size() - 1;
        while (start > 0 && isContinuation(text[start]))
            --start;
        std::string_view last = text.substr(start);
        if (!isWhiteSpace(takeCodePoint(last)))
            break;
        text = text.substr(0, start);
    }
    return text;
}

}
