#include "VelmarThumbnail/ThumbnailerOptions.h"

#include <gtest/gtest.h>

#include <vector>

using namespace VelmarThumbnail;
using Words = std::vector<std::string>;

TEST(ThumbnailerOptions, ReadsASizeAndTwoFiles)
{
    const std::pair<Words, ThumbnailerOptions> rows[] = {
        {{"a.wsz", "b.png"},                     {128, "a.wsz", "b.png"}           },
        {{"-s", "1", "a.wsz", "b.png"},          {1, "a.wsz", "b.png"}             },
        {{"a.wsz", "b.png", "-s", "4096"},       {4096, "a.wsz", "b.png"}          },
        {{"file:///tmp/a%20b", "file:///c.png"}, {128, "/tmp/a b", "file:///c.png"}}, // a name
    };
    for (const auto& [arguments, expected] : rows)
        EXPECT_EQ(ThumbnailerOptions::parse(arguments), expected);
}

TEST(ThumbnailerOptions, TellsWhatIsWrong)
{
    const std::pair<Words, std::string_view> rows[] = {
        {{},                          "missing INPUT and OUTPUT"                    },
        {{"a"},                       "missing OUTPUT"                              },
        {{"a", "b", "c"},             "only one INPUT and one OUTPUT are accepted"  },
        {{"-x", "a", "b"},            "unknown option: -x"                          },
        {{"a", "b", "-s"},            "-s needs a size from 1 to 4096"              },
        {{"-s", "0", "a", "b"},       "-s needs a size from 1 to 4096"              },
        {{"-s", "4097", "a", "b"},    "-s needs a size from 1 to 4096"              },
        {{"-s", "12x", "a", "b"},     "-s needs a size from 1 to 4096"              },
        {{"-s", "-5", "a", "b"},      "-s needs a size from 1 to 4096"              },
        {{"file://elsewhere/a", "b"}, "no file of this computer: file://elsewhere/a"},
    };
    for (const auto& [arguments, description] : rows) {
        const auto options = ThumbnailerOptions::parse(arguments);
        ASSERT_FALSE(options);
        EXPECT_EQ(options.error().description, description);
    }
}
