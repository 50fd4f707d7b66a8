#include "SkinKit/Tooling/CrashedSkins.h"

#include <gtest/gtest.h>

using namespace SkinKit;

namespace {

using Skin = CorpusSkins::File;

const Skin skins[] = {
    {.path = "x/Night.wsz",    .name = "Night",    .md5 = "00112233445566778899aabbccddeeff"},
    {.path = "x/My Night.wsz", .name = "My Night", .md5 = "FF112233445566778899AABBCCDDEEFF"},
    {.path = "y/Night.wsz",    .name = "Night",    .md5 = ""                                },
    {.path = "a.zip",          .name = "a",        .md5 = ""                                },
    {.path = "parse.wsz",      .name = "parse",    .md5 = ""                                },
    {.path = "[!].wsz",        .name = "[!]",      .md5 = ""                                },
    {.path = "été.wsz",        .name = "été",      .md5 = ""                                },
};

// Which skin the log is about; -1 for none.
int found(std::string_view file, std::string_view text)
{
    std::vector<const Skin*> pointers;
    for (const Skin& skin : skins)
        pointers.push_back(&skin);
    const auto place = CrashedSkins(pointers).find(CrashLog::of(file, text));
    return place ? static_cast<int>(*place) : -1;
}

}

TEST(CrashedSkins, FindsTheSkinThatALogIsAbout)
{
    struct Row {
        std::string_view file;
        std::string_view text;
        int expected;
    };
    const Row rows[] = {
        {"00112233445566778899AABBCCDDEEFF.log", "y/Night.wsz",                                             0 }, // fingerprint first
        {"1.log",                                "md5=ff112233445566778899aabbccddeeff, y/Night.wsz",       1 },
        {"1.log",                                "0ff112233445566778899aabbccddeeff",                       -1}, // a longer number
        {"1.log",                                "#1 0x1 in load (path=\"/skins/y/Night.wsz\") at l.cpp:1",
         2                                                                                                    }, // path, in a stack too
        {"1.log",                                "loading 'My Night.wsz'",                                  1 }, // the longest
        {"1.log",                                "while reading Night",                                     0 },
        {"Night.log",                            "Segmentation fault",                                      0 },
        {"Midnight.log",                         "Nightly Nights Night_ éNight",                            -1}, // parts of words
        {"1.log",                                "a skin",                                                  -1}, // short names are any words
        {"crash-a.log",                          "",                                                        -1},
        {"a.log",                                "",                                                        3 },
        {"1.log",                                "opened a.zip",                                            3 },
        {"1.log",                                "#0  0x1 in parse () at p.cpp:1",                          -1}, // a function, not a skin
        {"1.log",                                "the skin: parse",                                         4 },
        {"1.log",                                "[!].wsz",                                                 5 },
        {"1.log",                                "(été.wsz)",                                               6 },
        {"1.log",                                "",                                                        -1},
    };
    for (const auto& row : rows)
        EXPECT_EQ(found(row.file, row.text), row.expected) << row.file << ": " << row.text;
}

// Logs of programs say the same again and again, and may never end a line.
TEST(CrashedSkins, FindsItSoonInALogFullOfHits)
{
    std::vector<Skin> many(20'000);
    for (std::size_t i = 0; i < many.size(); ++i)
        many[i] = {.path = "folder/q" + std::to_string(i) + ".wsz", .name = "Zebra"};
    std::vector<const Skin*> pointers;
    for (const Skin& skin : many)
        pointers.push_back(&skin);
    std::string text;
    for (int i = 0; i < 20'000; ++i)
        text += "folder ";
    EXPECT_EQ(CrashedSkins(pointers).find(CrashLog::of("1.log", text + "folder/q7.wsz")), 7U);
}
