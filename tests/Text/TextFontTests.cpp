#include "SkinKit/Text/TextFont.h"

#include "tests/support/Pictures.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <climits>
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

Skin skinWithText(Size size)
{
    Skin skin;
    skin.sheets.emplace("TEXT", support::markedImage(size));
    return skin;
}

// The letters that an image shows, cell by cell from `xs`; "~" for an empty one, "?" for a mixture.
std::string lettersAt(const Image& image, std::span<const int> xs, std::string_view candidates,
                      const Skin& skin)
{
    std::string letters;
    for (const int x : xs) {
        const Image cell = *image.crop({x, 0, 5, 6});
        if (cell ==
            *Image(PixelBuffer::transparent({5, 6}), Image::Alpha::any).crop({0, 0, 5, 6})) {
            letters += '~';
            continue;
        }
        const auto found = std::ranges::find_if(candidates, [&](char c) {
            const auto sprite = TextFont::sprite(static_cast<char16_t>(c));
            return cell == *skin.sheets.at("TEXT").crop(sprite->rect());
        });
        letters += found == candidates.end() ? '?' : *found;
    }
    return letters;
}

const std::string thirty(30, 'x');
const std::string thirtyOne(31, 'x');
const std::string title = "1. DJ Nico Parda - Parda Rattling Intro (0:05)"; // 46 units

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

TEST(TextFont, DrawsACellForEachUnitOfTheComposedText)
{
    const Skin skin = skinWithText({155, 18});
    const auto image = textImage(skin, "Cafe\u0301;9");
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (Size{30, 6}));
    constexpr int xs[] = {0, 5, 10, 15, 20, 25};
    EXPECT_EQ(lettersAt(*image, xs, "acef9", skin), "cafe~9");
}

TEST(TextFont, StretchesCellsThatASmallSheetCutsShort)
{
    // The last column that is there belongs to the "b", two of whose five it has.
    const auto image = textImage(skinWithText({7, 4}), "bc");
    ASSERT_TRUE(image);
    constexpr unsigned columns[] = {5, 5, 6, 6, 6}; // floor((i + 1/2) * 2 / 5) beyond 5
    constexpr unsigned rows[] = {0, 1, 1, 2, 3, 3}; // floor((i + 1/2) * 4 / 6)
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 5; ++x) {
            EXPECT_EQ(image->pixel({x, y}), packPixel(columns[x], rows[y], 0)) << x << ", " << y;
            EXPECT_EQ(image->pixel({5 + x, y}), transparentPixel) << "no c at all";
        }
}

TEST(TextFont, GivesNothingWithoutATextOrASheet)
{
    EXPECT_FALSE(textImage(Skin{}, "text"));
    EXPECT_FALSE(textImage(skinWithText({155, 18}), ""));
}

TEST(MarqueeLayout, FillsAShortTextUpAndLoopsALongOne)
{
    const std::tuple<std::string, bool, std::string> rows[] = {
        {"", false, std::string(31, ' ')},
        {"Velmar", false, "Velmar" + std::string(25, ' ')},
        {thirty, false, thirty + " "},
        {thirtyOne, true, thirtyOne + "  ***  " + thirtyOne},
        // counted composed, in UTF-16 units
        {std::string(29, 'x') + "e\u0301", false, std::string(29, 'x') + "\u00E9 "},
        {std::string(29, 'x') + "\U0001F600", true,
         std::string(29, 'x') + "\U0001F600  ***  " + std::string(29, 'x') + "\U0001F600"},
    };
    for (const auto& [text, isLong, loop] : rows) {
        EXPECT_EQ(MarqueeLayout::isLong(text), isLong) << text;
        EXPECT_EQ(MarqueeLayout::loopText(text), loop) << text;
    }
}

TEST(MarqueeLayout, WrapsTheOffsetAtTheLengthOfOneRound)
{
    const std::tuple<std::string, int, int, int> rows[] = {
        {title,     0,       0,       0                                              },
        {title,     1,       0,       5                                              },
        {title,     52,      4,       264                                            },
        {title,     53,      0,       0                                              },
        {title,     0,       -1,      264                                            },
        {title,     -1,      0,       260                                            },
        {title,     -53,     0,       0                                              },
        {title,     1,       -6,      264                                            },
        {title,     INT_MAX, INT_MAX, static_cast<int>(6LL * INT_MAX % 265)          },
        {title,     INT_MIN, INT_MIN, static_cast<int>(265 - 6LL * INT_MAX % 265 - 6)},
        {thirtyOne, 38,      0,       0                                              },
        {thirtyOne, 37,      4,       189                                            },
        {thirty,    7,       3,       0                                              },
        {"",        7,       3,       0                                              },
    };
    for (const auto& [text, step, pixels, expected] : rows)
        EXPECT_EQ(MarqueeLayout::stepOffset(text, step, pixels), expected)
            << text << ", " << step << ", " << pixels;
}
