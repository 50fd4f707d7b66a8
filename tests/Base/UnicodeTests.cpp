#include "SkinKit/Base/Unicode.h"
#include "tests/support/Bytes.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <algorithm>

using namespace SkinKit;

namespace {

std::string repaired(std::string_view text)
{
    return Unicode::toValidUTF8(asBytes(text));
}

// A byte of a code page as UTF-8, as the system converts it; nothing for one that the page lacks.
std::optional<std::string> converted(const char* codePage, char byte)
{
    const auto converter = ::iconv_open("UTF-8", codePage);
    char character[4];
    char* in = &byte;
    char* out = character;
    std::size_t inLeft = 1;
    std::size_t outLeft = sizeof character;
    const bool isDefined = ::iconv(converter, &in, &inLeft, &out, &outLeft) == 0;
    ::iconv_close(converter);
    return isDefined ? std::optional(std::string(character, out)) : std::nullopt;
}

}

TEST(Unicode, KeepsEveryWellFormedCharacter)
{
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; codePoint += codePoint < 0x3000 ? 1 : 97) {
        if (codePoint >= 0xD800 && codePoint <= 0xDFFF)
            continue;
        std::string text;
        Unicode::append(text, codePoint);
        ASSERT_EQ(repaired(text), text) << std::uint32_t{codePoint};
        std::string_view rest = text;
        ASSERT_EQ(Unicode::takeCodePoint(rest), codePoint);
        ASSERT_TRUE(rest.empty());
    }
}

TEST(Unicode, ReplacesEachMaximalPartOfAnIllFormedSequence)
{
    struct Row {
        std::string_view bytes;
        std::string_view expected; // "?" for U+FFFD
    };
    const Row rows[] = {
        {"a\x80z",                       "a?z"              },
        {"a\xE9z",                       "a?z"              },
        {"\xC0\xAF",                     "??"               }, // longer than need be
        {"\xC1\xBF",                     "??"               },
        {"\xE0\x9F\xBF",                 "???"              },
        {"\xF0\x8F\xBF\xBF",             "????"             },
        {"\xED\xA0\x80",                 "???"              }, // a surrogate
        {"\xF4\x90\x80\x80",             "????"             }, // beyond the last code point
        {"\xF5\x80",                     "??"               },
        {"\xFF\xFE",                     "??"               },
        {"\xE2\x82",                     "?"                }, // cut short: one for all that could have gone on
        {"\xE2\x82z",                    "?z"               },
        {"\xF0\x9F\x98",                 "?"                },
        {"\xF0\x9F\x98\xF0\x9F\x98\x80", "?\xF0\x9F\x98\x80"},
        {"\xC3\xC3\xA9",                 "?\xC3\xA9"        },
        {"\xEF\xBB\xBFz",                "\xEF\xBB\xBFz"    }, // a byte order mark stays
    };
    for (const auto& [bytes, expected] : rows) {
        std::string replaced;
        for (const char c : expected)
            replaced += c == '?' ? "\uFFFD" : std::string(1, c);
        EXPECT_EQ(repaired(bytes), replaced) << testing::PrintToString(bytes);
        EXPECT_EQ(repaired(replaced), replaced);
    }
}

TEST(Unicode, ReadsUTF8OnlyWhenAllOfItIsWellFormed)
{
    for (const std::string_view text : {"", "plain", "\u00E9 \U0001F600", "\uFFFD"})
        EXPECT_EQ(Unicode::fromUTF8(asBytes(text)), text);
    for (const std::string_view bytes : {"\xE9", "plain \xFF", "\u00E9\xC3", "\xED\xA0\x80"})
        EXPECT_EQ(Unicode::fromUTF8(asBytes(bytes)), std::nullopt);
}

TEST(Unicode, ReadsEveryByteOfACodePageAsTheSystemDoes)
{
    for (int value = 0; value < 256; ++value) {
        const char byte = static_cast<char>(value);
        EXPECT_EQ(Unicode::fromWindows1252(asBytes({&byte, 1})), converted("CP1252", byte))
            << value;
        if (value >= ' ') { // the system keeps control characters
            EXPECT_EQ(Unicode::fromCodePage437(asBytes({&byte, 1})), converted("CP437", byte))
                << value;
        }
    }
    EXPECT_EQ(Unicode::fromWindows1252(asBytes("a\x80z")), "a\u20ACz");
    EXPECT_EQ(Unicode::fromWindows1252(asBytes("a\x9Dz")), std::nullopt);
    EXPECT_EQ(Unicode::fromCodePage437(asBytes("a\x01\x1Fz")), "a\u263A\u25BCz");
}

TEST(Unicode, LowersCaseInEveryScript)
{
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"",            ""           },
        {"MAIN.Bmp_[]", "main.bmp_[]"},
        {"ÀÉÎÕÜ",       "àéîõü"      },
        {"ЖУК",         "жук"        },
        {"Σ",           "σ"          },
        {"ß",           "ß"          },
        {"\u0130",      "i\u0307"    },
        {"\U00010400",  "\U00010428" },
    };
    for (const auto& [text, lower] : rows)
        EXPECT_EQ(Unicode::lowercased(text), lower);
}

TEST(Unicode, ComposesCanonically)
{
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"plain",              "plain"        },
        {"Cafe\u0301",         "Caf\u00E9"    },
        {"\u212B",             "\u00C5"       }, // the Angstrom sign is the letter
        {"\u1100\u1161\u11A8", "\uAC01"       }, // Hangul
        {"q\u0307\u0323",      "q\u0323\u0307"}, // marks in their order
        {"\uFB01",             "\uFB01"       }, // a compatibility form stays
        {"\U0001F600",         "\U0001F600"   },
    };
    for (const auto& [text, composed] : rows)
        EXPECT_EQ(Unicode::toNFC(text), composed);
}

// Sorting them one place at a time would take until tomorrow.
TEST(Unicode, ComposesALetterWithAMillionMarksInTheWrongOrder)
{
    constexpr int count = 500'000;
    std::string above;
    std::string below;
    for (int i = 0; i < count; ++i) {
        above += "\u0307";
        below += "\u0323";
    }
    EXPECT_EQ(Unicode::toNFC("q" + above + below), "q" + below + above);
}

TEST(Unicode, CountsCharactersOutsideTheFirstPlaneAsTwoUnits)
{
    EXPECT_EQ(Unicode::toUTF16("a\u00E9\uFFFD\U0001F600\U0010FFFF"),
              u"a\u00E9\uFFFD\xD83D\xDE00\xDBFF\xDFFF");
}

TEST(Unicode, KnowsWhatDoesNotShow)
{
    constexpr std::u32string_view invisible =
        U"\x1F\x7F\u0085\u009B\u00AD\u061C\u200B\u200F\u2028\u202E\u2060\u2066\u2069\u3164\uFE0F"
        U"\uFEFF\uFFF9\U000E0041";
    constexpr std::u32string_view visible =
        U" ~\u00A0\u00E9\u0301\u0600\u2010\uE000\uFFFD\U0001F600";
    EXPECT_TRUE(std::ranges::all_of(invisible, Unicode::isInvisible));
    EXPECT_TRUE(std::ranges::none_of(visible, Unicode::isInvisible));
}

TEST(Unicode, TakesCharactersAsReadersSeeThem)
{
    const std::vector<std::string_view> characters{
        "a",
        "e\u0301\u0323",
        "\r\n",
        "\n",
        "\U0001F1E9\U0001F1EA", // a flag of two letters
        "\U0001F1EB\U0001F1F7",
        "\U0001F469\U0001F3FD\u200D\U0001F680",
        "\u1100\u1161\u11A8", // Hangul
        "\xFF",               // ill-formed
        "z",
    };
    std::string text;
    for (const auto character : characters)
        text += character;
    std::string_view rest = text;
    for (const auto character : characters)
        EXPECT_EQ(Unicode::takeGrapheme(rest), character);
    EXPECT_TRUE(rest.empty());
    EXPECT_EQ(Unicode::firstGraphemes(text, 0), "");
    EXPECT_EQ(Unicode::firstGraphemes(text, 2), "ae\u0301\u0323");
    EXPECT_EQ(Unicode::firstGraphemes(text, 100), text);
}

TEST(Unicode, TrimsWhiteSpaceOfEveryKindAtBothEnds)
{
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"",                          ""             },
        {" \t\r\n\v\f ",              ""             },
        {" a b ",                     "a b"          },
        {"\u00A0\u2003é\u3000\u2028", "é"            },
        {"\u200Ba\uFEFF",             "\u200Ba\uFEFF"}, // neither is white space
    };
    for (const auto& [text, trimmed] : rows)
        EXPECT_EQ(Unicode::trimmed(text), trimmed);
}

TEST(Unicode, KnowsTheDigitsOfOtherScripts)
{
    for (const char32_t digit : {U'0', U'9', U'\u0660', U'\u0967', U'\uFF15', U'\U0001D7CE'})
        EXPECT_TRUE(Unicode::isDigit(digit)) << std::uint32_t{digit};
    for (const char32_t other : {U'/', U':', U'a', U'\u00B2', U'\u00BD', U'\u2160'})
        EXPECT_FALSE(Unicode::isDigit(other)) << std::uint32_t{other};
}
