#include "SkinKit/Base/Unicode.h"
#include "tests/support/Bytes.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace SkinKit;

namespace {

std::string repaired(std::string_view text)
{
    return Unicode::toValidUTF8(asBytes(text));
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
        {"\xE0\x9F\xBF",                 "???"              },
        {"\xF0\x8F\xBF\xBF",             "????"             },
        {"\xED\xA0\x80",                 "???"              }, // a surrogate
        {"\xF4\x90\x80\x80",             "????"             }, // beyond the last code point
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

TEST(Unicode, ReadsCodePages)
{
    EXPECT_EQ(Unicode::fromWindows1252(asBytes("a\x80\xE9\x9Fz")), "a\u20AC\u00E9\u0178z");
    EXPECT_EQ(Unicode::fromWindows1252(asBytes("a\x9Dz")), std::nullopt);
    EXPECT_EQ(Unicode::fromCodePage437(asBytes("a\x01\x1F\x80\xE1\xFFz")),
              "a\u263A\u25BC\u00C7\u00DF\u00A0z");
}

TEST(Unicode, LowersCaseInEveryScript)
{
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"MAIN.Bmp_[]", "main.bmp_[]"},
        {"ÀÉÎÕÜ",       "àéîõü"      },
        {"ЖУК",         "жук"        },
        {"\u0130",      "i\u0307"    },
        {"\U00010400",  "\U00010428" },
    };
    for (const auto& [text, lower] : rows)
        EXPECT_EQ(Unicode::lowercased(text), lower);
}

TEST(Unicode, ComposesCanonically)
{
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"Cafe\u0301",         "Caf\u00E9"    },
        {"\u1100\u1161\u11A8", "\uAC01"       }, // Hangul
        {"q\u0307\u0323",      "q\u0323\u0307"}, // marks in their order
        {"\uFB01",             "\uFB01"       }, // a compatibility form stays
    };
    for (const auto& [text, composed] : rows)
        EXPECT_EQ(Unicode::toNFC(text), composed);
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
