#include "VelmarThumbnail/ThumbnailerOptions.h"

#include "tests/support/CommandLineRows.h"

using namespace VelmarThumbnail;

// clang-format off
TEST(ThumbnailerOptions, ParsesTheCommandLineOrReportsTheFirstError)
{
    constexpr std::string_view badSize = "-s needs a size from 1 to 4096";
    support::expectParsed<ThumbnailerOptions>({
        {"a.wsz b.png",                     {128, "a.wsz", "b.png"}},
        {"-s 1 a.wsz b.png",                {1, "a.wsz", "b.png"}},
        {"a.wsz b.png -s 4096",             {4096, "a.wsz", "b.png"}},
        {"file:///tmp/a%20b file:///c.png", {128, "/tmp/a b", "file:///c.png"}}, // a name
        {"",                                "missing INPUT and OUTPUT"},
        {"a",                               "missing OUTPUT"},
        {"a b c",                           "only one INPUT and one OUTPUT are accepted"},
        {"a b c -x",                        "unknown option: -x"},
        {"a b -s",                          badSize},
        {"-s 0 a b",                        badSize},
        {"-s 4097 a b",                     badSize},
        {"-s 12x a b",                      badSize},
        {"-s -5 a b",                       badSize},
        {"file://elsewhere/a b",            "no file of this computer: file://elsewhere/a"},
    });
}
// clang-format on
