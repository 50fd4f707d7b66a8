#include "SkinKit/Tooling/CorpusOptions.h"

#include "SkinKit/Tooling/CorpusReportOptions.h"
#include "tests/support/Words.h"

#include <gtest/gtest.h>

#include <limits>

using namespace SkinKit;

namespace {

struct Complaint {
    std::string_view line, expected;
};

template <typename Options>
void expectComplaints(std::span<const Complaint> rows)
{
    for (const auto& [line, expected] : rows) {
        const auto options = Options::parse(support::words(line));
        ASSERT_FALSE(options) << line;
        EXPECT_EQ(options.error().description, expected) << line;
    }
}

}

TEST(CorpusOptions, ReadsTheCommandLine)
{
    struct Row {
        std::string_view line;
        CorpusOptions expected;
    };
    const Row rows[] = {
        {"skins --out o",                                                                {.input = "skins", .out = "o"}                },
        {"--resume skins --out a --out b --resume",                                      {.input = "skins", .out = "b", .resume = true}},
        {"s --out o --timeout 2.5 --max-memory 1 --sample 7 --seed 0 --manifest m.json",
         {.input = "s",
          .out = "o",
          .timeout = 2.5,
          .maxMemoryMiB = 1,
          .sample = 7,
          .seed = 0,
          .manifest = "m.json"}                                                                                                        },
        {"s --out -o --timeout +1e-3 --seed 18446744073709551615",
         {.input = "s", .out = "-o", .timeout = 0.001, .seed = UINT64_MAX}                                                             },
        {"s --out o --timeout inf",
         {.input = "s", .out = "o", .timeout = std::numeric_limits<double>::infinity()}                                                },
    };
    for (const auto& [line, expected] : rows) {
        const auto options = CorpusOptions::parse(support::words(line));
        ASSERT_TRUE(options) << line << ": " << options.error().description;
        EXPECT_EQ(*options, expected) << line;
    }
    const std::vector<std::string> empty{"", "--out", ""};
    EXPECT_EQ(CorpusOptions::parse(empty), CorpusOptions{});
    EXPECT_EQ(CorpusOptions::usage,
              "usage: skintool corpus <dir> --out <dir> [--resume] [--timeout <s>=10] "
              "[--max-memory <MiB>=4096] [--sample <N>] [--seed <n>=1] [--manifest <file>]");
}

TEST(CorpusOptions, SaysWhatIsWrong)
{
    constexpr std::string_view badTimeout = "--timeout needs a positive number of seconds";
    constexpr std::string_view badMemory = "--max-memory needs a positive number of MiB";
    constexpr std::string_view badSample = "--sample needs a positive count";
    constexpr std::string_view badSeed = "--seed needs a non-negative integer";
    constexpr Complaint rows[] = {
        {"",                                           "missing <dir>"             },
        {"--out o",                                    "missing <dir>"             },
        {"s",                                          "missing --out <dir>"       },
        {"a b --out o",                                "only one <dir> is accepted"},
        {"a b --bogus",                                "only one <dir> is accepted"}, // the first error ends it
        {"--bogus",                                    "unknown option: --bogus"   },
        {"s --out=o",                                  "unknown option: --out=o"   },
        {"s -",                                        "unknown option: -"         },
        {"--out",                                      "--out needs a folder"      },
        {"--out --resume",                             "--out needs a folder"      },
        {"s --manifest",                               "--manifest needs a file"   },
        {"s --out o --timeout",                        badTimeout                  },
        {"s --out o --timeout 0",                      badTimeout                  },
        {"s --out o --timeout -5",                     badTimeout                  }, // a value, if a bad one
        {"s --out o --timeout nan",                    badTimeout                  },
        {"s --out o --timeout 1s",                     badTimeout                  },
        {"s --out o --max-memory 0",                   badMemory                   },
        {"s --out o --max-memory 1.5",                 badMemory                   },
        {"s --out o --max-memory 9223372036854775808", badMemory                   },
        {"s --out o --sample 0",                       badSample                   },
        {"s --out o --sample --seed",                  badSample                   },
        {"s --out o --seed -1",                        badSeed                     },
        {"s --out o --seed 18446744073709551616",      badSeed                     },
    };
    expectComplaints<CorpusOptions>(rows);
}

TEST(CorpusReportOptions, ReadsTheCommandLine)
{
    const CorpusReportOptions least{.input = "r", .markdown = "m", .json = "j"};
    EXPECT_EQ(CorpusReportOptions::parse(support::words("r --markdown m --json j")), least);
    EXPECT_EQ(least.sample, 1000);

    const CorpusReportOptions whole{.input = "r",
                                    .markdown = "-m",
                                    .json = "j",
                                    .env = "e",
                                    .sample = 3,
                                    .seed = 9,
                                    .crashes = "c"};
    EXPECT_EQ(CorpusReportOptions::parse(support::words(
                  "--json i --json j --env e --crashes c --seed 9 --sample 3 r --markdown -m")),
              whole);
    EXPECT_EQ(CorpusReportOptions::usage,
              "usage: skintool corpus-report <results.jsonl> --markdown <report.md> --json "
              "<summary.json> [--env <env.json>] [--sample <N>=1000] [--seed <n>=1] [--crashes "
              "<dir>]");
}

TEST(CorpusReportOptions, SaysWhatIsWrong)
{
    constexpr Complaint rows[] = {
        {"",                      "missing <results.jsonl>"             },
        {"--markdown m --json j", "missing <results.jsonl>"             },
        {"r --json j",            "missing --markdown <report.md>"      },
        {"r",                     "missing --markdown <report.md>"      },
        {"r --markdown m",        "missing --json <summary.json>"       },
        {"r s",                   "only one <results.jsonl> is accepted"},
        {"r --resume",            "unknown option: --resume"            },
        {"r --markdown",          "--markdown needs a file"             },
        {"r --json --env",        "--json needs a file"                 },
        {"r --env",               "--env needs a file"                  },
        {"r --crashes",           "--crashes needs a folder"            },
        {"r --sample -1",         "--sample needs a positive count"     },
        {"r --seed x",            "--seed needs a non-negative integer" },
    };
    expectComplaints<CorpusReportOptions>(rows);
}
