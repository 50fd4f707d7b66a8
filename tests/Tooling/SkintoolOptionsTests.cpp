#include "SkinKit/Tooling/SkintoolOptions.h"

#include "tests/support/Words.h"

#include <gtest/gtest.h>

#include <vector>

using namespace SkinKit;
using Options = SkintoolOptions;

TEST(SkintoolOptions, ReadsTheCommandLine)
{
    struct Row {
        std::string_view line;
        Options expected;
    };
    const Row rows[] = {
        {"a.wsz",                                             {.input = "a.wsz"}                            },
        {"-v a.wsz",                                          {.verbose = true, .input = "a.wsz"}           },
        {"a.wsz --verbose -v",                                {.verbose = true, .input = "a.wsz"}           },
        {"--png out.png a.wsz",                               {.png = "out.png", .input = "a.wsz"}          },
        {"--png a --png b folder",                            {.png = "b", .input = "folder"}               },
        {"a.wsz --png o --state idle --scale 3 --no-region",
         {.png = "o",
          .state = Options::State::idle,
          .scale = 3,
          .noRegion = true,
          .input = "a.wsz"}                                                                                 },
        {"--state webamp --scale 1 --png o --compare refs a",
         {.png = "o", .compare = "refs", .input = "a"}                                                      },
        {"--scale 2 --scale +1 --png o --compare refs a",
         {.png = "o", .compare = "refs", .input = "a"}                                                      },
        {"--png o --scale 9223372036854775807 a",             {.png = "o", .scale = INT64_MAX, .input = "a"}},
    };
    for (const auto& [line, expected] : rows) {
        const auto options = Options::parse(support::words(line));
        ASSERT_TRUE(options) << line << ": " << options.error().description;
        EXPECT_EQ(*options, expected) << line;
    }
}

TEST(SkintoolOptions, SaysWhatIsWrong)
{
    constexpr std::string_view noInput = "missing <skin.wsz | folder>";
    constexpr std::string_view needsPNG = "--state, --scale, --compare and --no-region need --png";
    constexpr std::string_view badState = "--state must be webamp or idle";
    constexpr std::string_view badScale = "--scale needs an integer of 1 or more";
    struct Row {
        std::string_view line, expected;
    };
    const Row rows[] = {
        {"",                                   noInput                                            },
        {"--png o",                            noInput                                            },
        {"a b",                                "only one <skin.wsz | folder> is accepted"         },
        {"--png",                              "--png needs an output path"                       },
        {"a --png -out.png",                   "--png needs an output path"                       },
        {"a --compare",                        "--compare needs a folder"                         },
        {"a --compare --png o",                "--compare needs a folder"                         },
        {"a --state",                          badState                                           },
        {"a --png o --state Idle",             badState                                           },
        {"a --state -v",                       badState                                           },
        {"a --scale",                          badScale                                           },
        {"a --scale 0",                        badScale                                           },
        {"a --scale -1",                       badScale                                           },
        {"a --scale x",                        badScale                                           },
        {"a --scale 1.5",                      badScale                                           },
        {"a --scale 9223372036854775808",      badScale                                           },
        {"--bogus",                            "unknown option: --bogus"                          }, // before the missing input
        {"a -",                                "unknown option: -"                                },
        {"a --png=o",                          "unknown option: --png=o"                          },
        {"a -vv",                              "unknown option: -vv"                              },
        {"a --scale 0 --bogus",                badScale                                           }, // the first error ends it
        {"--png o --compare refs --scale 2 a", "--compare needs --scale 1 (the references are 1x)"},
        {"--png o --compare refs --scale 2",   noInput                                            },
        {"--compare refs --scale 2 a",         needsPNG                                           },
        {"--scale 1 a",                        needsPNG                                           },
        {"--state webamp a",                   needsPNG                                           },
        {"--compare refs a",                   needsPNG                                           },
        {"--no-region a",                      needsPNG                                           },
    };
    for (const auto& [line, expected] : rows) {
        const auto options = Options::parse(support::words(line));
        ASSERT_FALSE(options) << line;
        EXPECT_EQ(options.error().description, expected) << line;
    }
}

TEST(SkintoolOptions, TakesArgumentsAsTheyAreEvenEmptyOnes)
{
    const std::vector<std::string> arguments{"--png", "", "my skin.wsz"};
    EXPECT_EQ(Options::parse(arguments), (Options{.png = "", .input = "my skin.wsz"}));
    EXPECT_EQ(Options::usage,
              "usage: skintool [-v|--verbose] [--png <out> [--state webamp|idle] "
              "[--scale N] [--compare <refdir>] [--no-region]] <skin.wsz | folder>");
}
