#include "SkinKit/Tooling/PreviewOptions.h"

#include "tests/support/Words.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using Options = PreviewOptions;

TEST(PreviewOptions, ReadsTheCommandLine)
{
    struct Row {
        std::string_view line;
        Options expected;
    };
    const Row rows[] = {
        {"a.wsz",             {.input = "a.wsz"}           },
        {"--mhtml a --mhtml", {.input = "a", .mhtml = true}},
        {"--out o a --out p", {.input = "a", .out = "p"}   },
    };
    for (const auto& [line, expected] : rows) {
        const auto options = Options::parse(support::words(line));
        ASSERT_TRUE(options) << line << ": " << options.error().description;
        EXPECT_EQ(*options, expected) << line;
    }
    EXPECT_EQ(Options::usage,
              "usage: skintool preview <skin.wsz | folder> [--out <file>] [--mhtml]");
}

TEST(PreviewOptions, SaysWhatIsWrong)
{
    struct Row {
        std::string_view line, expected;
    };
    const Row rows[] = {
        {"",                "missing <skin.wsz | folder>"             },
        {"--mhtml --out o", "missing <skin.wsz | folder>"             },
        {"a b",             "only one <skin.wsz | folder> is accepted"},
        {"a --out",         "--out needs an output path"              },
        {"a --out --mhtml", "--out needs an output path"              },
        {"a --out -o",      "--out needs an output path"              },
        {"--html",          "unknown option: --html"                  }, // before the missing input
        {"a --out=o",       "unknown option: --out=o"                 },
        {"a -h",            "unknown option: -h"                      },
    };
    for (const auto& [line, expected] : rows) {
        const auto options = Options::parse(support::words(line));
        ASSERT_FALSE(options) << line;
        EXPECT_EQ(options.error().description, expected) << line;
    }
}
