#include "SkinKit/Tooling/CrashLogs/CrashedSkins.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using Skin = CorpusSkins::File;

namespace {

// Which of the skins the log is about; -1 for none.
int found(std::span<const Skin> skins, std::string_view file, std::string_view text)
{
    std::vector<const Skin*> pointers;
    for (const Skin& skin : skins)
        pointers.push_back(&skin);
    const auto place = CrashedSkins(pointers).find(CrashLog::of(file, text));
    return place ? static_cast<int>(*place) : -1;
}

}

// clang-format off
TEST(CrashedSkins, FindsTheSkinThatALogIsAbout)
{
    const Skin skins[] = {
        {.path = "x/Night.wsz",    .name = "Night",    .md5 = "00112233445566778899aabbccddeeff"},
        {.path = "x/My Night.wsz", .name = "My Night", .md5 = "FF112233445566778899AABBCCDDEEFF"},
        {.path = "y/Night.wsz",    .name = "Night"},
        {.path = "a.zip",          .name = "a"},
        {.path = "parse.wsz",      .name = "parse"},
        {.path = "été.wsz",        .name = "été"},
    };
    const std::tuple<int, std::string_view, std::string_view> rows[] = {
        { 0, "00112233445566778899AABBCCDDEEFF.log", "y/Night.wsz"}, // fingerprint first
        { 1, "1.log",        "md5=ff112233445566778899aabbccddeeff, y/Night.wsz"},
        {-1, "1.log",        "0ff112233445566778899aabbccddeeff"}, // a longer number
        { 2, "1.log",        "#1 0x1 in load (path=\"/skins/y/Night.wsz\") at l.cpp:1"},
        { 1, "1.log",        "loading 'My Night.wsz'"}, // the longest
        { 0, "Night.log",    "Segmentation fault"},
        {-1, "Midnight.log", "Nightly Nights Night_ éNight"}, // parts of words
        {-1, "1.log",        "a skin"}, // short names are any words
        { 3, "a.log",        ""},
        { 3, "1.log",        "opened a.zip"},
        {-1, "1.log",        "#0  0x1 in parse () at p.cpp:1"}, // a function, not a skin
        { 4, "1.log",        "the skin: parse"},
        { 5, "1.log",        "(été.wsz)"},
    };
    for (const auto& [expected, file, text] : rows)
        EXPECT_EQ(found(skins, file, text), expected) << file << ": " << text;
}
// clang-format on

// Logs of programs repeat themselves, and may never end a line.
TEST(CrashedSkins, FindsItSoonInALogFullOfHits)
{
    std::vector<Skin> many(20'000);
    for (std::size_t i = 0; i < many.size(); ++i)
        many[i] = {.path = "folder/q" + std::to_string(i) + ".wsz", .name = "Zebra"};
    std::string text;
    for (int i = 0; i < 20'000; ++i)
        text += "folder ";
    EXPECT_EQ(found(many, "1.log", text + "folder/q7.wsz"), 7);
}
