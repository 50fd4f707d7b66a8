#include "SkinKit/Tooling/WindowsOptions.h"

#include "tests/support/Words.h"

#include <gtest/gtest.h>

#include <vector>

using namespace SkinKit;
using Options = WindowsOptions;

TEST(WindowsOptions, ReadsTheCommandLine)
{
    struct Row {
        std::string_view line;
        Options expected;
    };
    const Row rows[] = {
        {"a.wsz --out o",                                                     {.input = "a.wsz", .out = "o"}              },
        {"--out o --out p --no-region --no-region a",                         {.input = "a", .out = "p", .noRegion = true}},
        {"a --scale 2 --scale +3 --out o --state idle",
         {.input = "a", .out = "o", .scale = 3, .state = Options::State::idle}                                            },
        {"a --out o --state idle --state webamp --scale 9223372036854775807",
         {.input = "a", .out = "o", .scale = INT64_MAX}                                                                   },
    };
    for (const auto& [line, expected] : rows) {
        const auto options = Options::parse(support::words(line));
        ASSERT_TRUE(options) << line << ": " << options.error().description;
        EXPECT_EQ(*options, expected) << line;
    }
    const std::vector<std::string> odd{"", "--out", ""};
    EXPECT_EQ(Options::parse(odd), Options{});
    EXPECT_EQ(Options::usage, "usage: skintool windows <skin.wsz | folder> --out <dir> [--scale N] "
                              "[--state webamp|idle] [--no-region]");
}

TEST(WindowsOptions, SaysWhatIsWrong)
{
    constexpr std::string_view noInput = "missing <skin.wsz | folder>";
    constexpr std::string_view noFolder = "--out needs a folder";
    constexpr std::string_view badState = "--state must be webamp or idle";
    constexpr std::string_view badScale = "--scale needs an integer of 1 or more";
    struct Row {
        std::string_view line, expected;
    };
    const Row rows[] = {
        {"",                                      noInput                                   },
        {"--out o",                               noInput                                   },
        {"a",                                     "missing --out <dir>"                     },
        {"a b",                                   "only one <skin.wsz | folder> is accepted"}, // before the missing folder
        {"a --out",                               noFolder                                  },
        {"a --out --scale 2",                     noFolder                                  },
        {"a --out o --state",                     badState                                  },
        {"a --out o --state Webamp",              badState                                  },
        {"a --out o --scale",                     badScale                                  },
        {"a --out o --scale 0",                   badScale                                  },
        {"a --out o --scale -1",                  badScale                                  },
        {"a --out o --scale 2x",                  badScale                                  },
        {"a --out o --scale 9223372036854775808", badScale                                  },
        {"--bogus",                               "unknown option: --bogus"                 }, // before the missing input
        {"a --out o -v",                          "unknown option: -v"                      },
        {"a --out=o",                             "unknown option: --out=o"                 },
        {"a --state x --bogus",                   badState                                  }, // the first error ends it
    };
    for (const auto& [line, expected] : rows) {
        const auto options = Options::parse(support::words(line));
        ASSERT_FALSE(options) << line;
        EXPECT_EQ(options.error().description, expected) << line;
    }
}
