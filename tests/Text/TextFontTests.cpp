#include "SkinKit/Text/TextFont.h"

#include <gtest/gtest.h>

#include <string>

using namespace SkinKit;

namespace {

// The text as the font shows it: of each cell its character, "~" where there is none.
std::string shown(std::string_view text)
{
    std::string characters;
    for (const auto& name : TextFont::cells(text))
        characters += name ? static_cast<char>(std::stoi(std::string(name->substr(10)))) : '~';
    return characters;
}

}

TEST(TextFont, ShowsEachCharacterInItsCell)
{
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"",                            ""                           },
        {"Az09 @\"",                    "az09 @\""                   },
        {".:()-'!_+\\/[]^&%,=$#?*<>{}", ".:()-'!_+\\/[]^&%,=$#?*<>{}"},
        {"a;b|`~\t",                    "a~b~~~~"                    },
        {"Café Straße",                 "cafe strase"                }, // of two letters the first
        {"Æß Œuvre Ĳssel Þing ŉ",       "as ouvre issel ting '"      },
        {"ÄÅÖ äåö",                     "aao aao"                    }, // although the sheet has cells for them
        {"ΑЖ日",                        "~~~"                        },
        {"\u00A9\u00BD",                "~~"                         },
        {"e\u0301\u20D7\uFE20",         "e~~~"                       }, // marks on their own are dropped
        {"\u212A",                      "k"                          }, // the Kelvin sign, whose lower case is a letter
        {"\U0001F600!",                 "~~!"                        }, // two units, two gaps
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(shown(text), expected) << text;
    EXPECT_EQ(TextFont::spriteName(u'…'), "CHARACTER_8230");
    EXPECT_EQ(TextFont::spriteName(u'\0'), std::nullopt);
    EXPECT_EQ(TextFont::spriteName(u'\xD800'), std::nullopt);
}

TEST(TextFont, FoldsEveryAccentedLetterOntoTheFirstOfItsReplacement)
{
    const std::pair<std::u16string_view, std::string_view> rows[] = {
        {u"ÀÁÂÃÄÅĀĂĄ", "A" },
        {u"ÐĎĐ",       "D" },
        {u"ĦĤ",        "H" },
        {u"ÌÍÎÏĨĪĬĮİ", "I" },
        {u"ìíîïĩīĭįı", "i" },
        {u"ķĸ",        "k" },
        {u"ĿŁ",        "L" },
        {u"ŋñ",        "n" },
        {u"Øø",        ""  },
        {u"śŝşšſ",     "s" },
        {u"ŦŤ",        "T" },
        {u"ŸÝŶ",       "Y" },
        {u"Æ",         "Ae"},
        {u"œ",         "oe"},
        {u"Ĳ",         "IJ"},
        {u"ĳ",         "ij"},
        {u"þ",         "th"},
        {u"ß",         "ss"},
        {u"ŉ",         "'n"},
    };
    for (const auto& [units, letters] : rows)
        for (const char16_t unit : units)
            EXPECT_EQ(TextFont::deburr(unit),
                      letters.empty() ? (unit == u'Ø' ? "O" : "o") : letters)
                << std::uint32_t{unit};
    const std::pair<char16_t, std::optional<std::string>> others[] = {
        {u'a',      "a"         },
        {u'×',      "×"         },
        {u'Ǻ',      "Ǻ"         },
        {u'日',     "日"        },
        {u'\u0301', std::nullopt}, // a mark
        {u'\xD800', std::nullopt}, // half a character
    };
    for (const auto& [unit, expected] : others)
        EXPECT_EQ(TextFont::deburr(unit), expected) << std::uint32_t{unit};
}
