#include "SkinKit/Formats/PlaylistStyleParser.h"
#include "tests/support/Bytes.h"

#include <gtest/gtest.h>

using namespace SkinKit;

namespace {

using Notes = std::vector<std::string>;

}

TEST(PlaylistStyleParser, ReadsColoursAndFontWhateverTheCaseOfTheKeys)
{
    const auto [style, notes] = PlaylistStyleParser::parse(
        "[TEXT]\r\nNormal=#010203\r\nCURRENT=#A0b0C0\r\nnormalbg=040506\r\nSelectedBG= #0000FF \r\n"
        "Font=\"Comic Sans\"\r\n");
    const PlaylistStyle expected{
        .normal = {1,    2,    3   },
        .current = {0xA0, 0xB0, 0xC0},
        .normalBackground = {4,    5,    6   },
        .selectedBackground = {0,    0,    255 },
        .font = "Comic Sans"
    };
    EXPECT_EQ(style, expected);
    EXPECT_EQ(notes, Notes{});
}

TEST(PlaylistStyleParser, KeepsTheDefaultsOfWhatIsNotThere)
{
    const PlaylistStyle expected{
        .normal = {0,   255, 0  },
        .current = {255, 255, 255},
        .normalBackground = {0,   0,   0  },
        .selectedBackground = {0,   0,   198},
        .font = "Arial"
    };
    EXPECT_EQ(PlaylistStyle::defaults(), expected);
    for (const std::string_view text : {"", "[Other]\nNormal=x", "[Text]", "[Text]\nFont=",
                                        "[Text]\nFont=\" \t\"", "[Text]\nNormal=#123456\n[text]"}) {
        const auto [style, notes] = PlaylistStyleParser::parse(text);
        EXPECT_EQ(style, expected) << text;
        EXPECT_EQ(notes, Notes{}) << text;
    }
}

TEST(PlaylistStyleParser, NotesEachUnusableColourInAFixedOrder)
{
    const auto [style, notes] = PlaylistStyleParser::parse(
        "[Text]\nSelectedBG=''\nNormalBG=; comment\nCurrent='#12345'\nNormal= green ");
    EXPECT_EQ(style, PlaylistStyle::defaults());
    EXPECT_EQ(notes, (Notes{"pledit.txt normal 'green' unusable; default",
                            "pledit.txt current '#12345' unusable; default",
                            "pledit.txt normalbg '; comment' unusable; default",
                            "pledit.txt selectedbg '' unusable; default"}));
}

TEST(PlaylistStyleParser, TellsColoursFromOtherText)
{
    const std::pair<std::string_view, std::optional<RGBColor>> rows[] = {
        {"#0a0B0c",           rgb(0x0A0B0C)},
        {"'\t #0A0B0C'",      rgb(0x0A0B0C)},
        {"#0A0B0CFF",         rgb(0x0A0B0C)}, // what follows six digits is ignored
        {"#0A0B0C ; comment", rgb(0x0A0B0C)},
        {"#0F0",              std::nullopt },
        {"#0A0B0",            std::nullopt },
        {"#0A0B0G",           std::nullopt },
        {"0x0A0B0C",          std::nullopt },
        {"+0A0B0C",           std::nullopt },
        {"# 0A0B0C",          std::nullopt },
    };
    for (const auto& [value, expected] : rows) {
        const auto [style, notes] =
            PlaylistStyleParser::parse("[Text]\ncurrent=" + std::string(value));
        EXPECT_EQ(style.current, expected.value_or(PlaylistStyle{}.current)) << value;
        EXPECT_EQ(notes.empty(), expected.has_value()) << value;
    }
}

TEST(PlaylistStyleParser, RepairsBytesThatAreNotUTF8)
{
    const auto bytes = support::bytes("[Text]\nFont=Caf\xE9\nNormal=\xFF");
    const auto [style, notes] = PlaylistStyleParser::parse(asText(bytes));
    EXPECT_EQ(style.font, "Caf\uFFFD");
    EXPECT_EQ(notes, Notes{"pledit.txt normal '\uFFFD' unusable; default"});
}
