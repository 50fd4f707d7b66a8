#include "SkinKit/Tooling/CommandLine/CorpusOptions.h"
#include "SkinKit/Tooling/CommandLine/SkintoolOptions.h"
#include "tests/support/CommandLineRows.h"

#include <limits>

using namespace SkinKit;
using support::expectParsed;

namespace {

constexpr std::string_view noSkin = "missing <skin.wsz | folder>";
constexpr std::string_view oneSkin = "only one <skin.wsz | folder> is accepted";
constexpr std::string_view badState = "--state must be webamp or idle";
constexpr std::string_view badScale = "--scale needs an integer of 1 or more";

}

// clang-format off
TEST(Options, OfTheSkinFormsAreParsedOrTheFirstErrorReported)
{
    using State = SkintoolOptions::State;
    EXPECT_EQ(SkintoolOptions::usage,
              "usage: skintool [-v|--verbose] [--png <out> [--state webamp|idle] "
              "[--scale N] [--compare <refdir>] [--no-region]] <skin.wsz | folder>");
    constexpr std::string_view needsPNG = "--state, --scale, --compare and --no-region need --png";
    expectParsed<SkintoolOptions>({
        {"a.wsz --verbose -v",                {.verbose = true, .input = "a.wsz"}},
        {"--png a --png b folder",            {.png = "b", .input = "folder"}},
        {"a --png o --state idle --scale 3 --no-region",
         {.png = "o", .state = State::idle, .scale = 3, .noRegion = true, .input = "a"}},
        {"--state webamp --scale 2 --scale +1 --png o --compare refs a",
         {.png = "o", .compare = "refs", .input = "a"}},
        {"--png o --scale 9223372036854775807 a",
         {.png = "o", .scale = INT64_MAX, .input = "a"}},
        {"--png o",                           noSkin},
        {"a b",                               oneSkin},
        {"a b --bogus",                       "unknown option: --bogus"}, // before the second skin
        {"a -",                               "unknown option: -"},
        {"a --png=o",                         "unknown option: --png=o"},
        {"--png",                             "--png needs an output path"},
        {"a --png -out.png",                  "--png needs an output path"},
        {"a --compare --png o",               "--compare needs a folder"},
        {"a --png o --state Idle",            badState},
        {"a --scale",                         badScale},
        {"a --scale 1.5",                     badScale},
        {"a --scale 9223372036854775808",     badScale},
        {"a --scale 0 --bogus",               badScale}, // the first error counts
        {"--png o --compare refs --scale 2 a", "--compare needs --scale 1 (the references are 1x)"},
        {"--png o --compare refs --scale 2",  noSkin},
        {"--compare refs --scale 2 a",        needsPNG},
        {"--scale 1 a",                       needsPNG},
        {"--state webamp a",                  needsPNG},
        {"--no-region a",                     needsPNG},
    });
    const std::vector<std::string> odd{"--png", "", "my skin.wsz"};
    EXPECT_EQ(SkintoolOptions::parse(odd), (SkintoolOptions{.png = "", .input = "my skin.wsz"}));

    expectParsed<InfoOptions>({
        {"a.wsz --json", {.json = true, .input = "a.wsz"}},
        {"--json",       noSkin},
        {"a b",          oneSkin},
    });
    expectParsed<WindowsOptions>({
        {"--out o --out p --no-region a",      {.input = "a", .out = "p", .noRegion = true}},
        {"a --scale 3 --out o --state idle",
         {.input = "a", .out = "o", .scale = 3, .state = WindowsOptions::State::idle}},
        {"--out o",                            noSkin},
        {"a",                                  "missing --out <dir>"},
        {"a b --bogus",                        oneSkin},
        {"a --out -o",                         "--out needs a folder"},
    });
    expectParsed<PreviewOptions>({
        {"--mhtml a",         {.input = "a", .mhtml = true}},
        {"--out o a --out p", {.input = "a", .out = "p"}},
        {"--mhtml --out o",   noSkin},
        {"a --out -o",        "--out needs an output path"},
    });
    expectParsed<GalleryOptions>({
        {"skins --scale 3 --out -o", {.input = "skins", .out = "-o", .scale = 3}},
        {"skins --out o",            {.input = "skins", .out = "o", .scale = 1}},
        {"--out o",                  "missing <dir>"},
        {"s",                        "missing --out <dir>"},
        {"s t --bogus",              "only one <dir> is accepted"},
        {"s --out",                  "--out needs a folder"},
    });
}

TEST(Options, OfARunAreParsedOrTheFirstErrorReported)
{
    constexpr double endless = std::numeric_limits<double>::infinity();
    EXPECT_EQ(CorpusOptions::usage,
              "usage: skintool corpus <dir> --out <dir> [--resume] [--timeout <s>=10] "
              "[--max-memory <MiB>=4096] [--sample <N>] [--seed <n>=1] [--manifest <file>]");
    constexpr std::string_view badTimeout = "--timeout needs a positive number of seconds";
    expectParsed<CorpusOptions>({
        {"--resume skins --out a --out b --resume",
         {.input = "skins", .out = "b", .resume = true}},
        {"s --out o --timeout 2.5 --max-memory 1 --sample 7 --seed 0 --manifest m.json",
         {.input = "s", .out = "o", .timeout = 2.5, .maxMemoryMiB = 1, .sample = 7, .seed = 0,
          .manifest = "m.json"}},
        {"s --out -o --timeout +1e-3 --seed 18446744073709551615",
         {.input = "s", .out = "-o", .timeout = 0.001, .seed = UINT64_MAX}},
        {"s --out o --timeout inf",    {.input = "s", .out = "o", .timeout = endless}},
        {"--out o",                    "missing <dir>"},
        {"s",                          "missing --out <dir>"},
        {"a b --bogus",                "only one <dir> is accepted"}, // the first error counts
        {"--bogus",                    "unknown option: --bogus"},
        {"--out --resume",             "--out needs a folder"},
        {"s --manifest",               "--manifest needs a file"},
        {"s --out o --timeout 0",      badTimeout},
        {"s --out o --timeout -5",     badTimeout}, // a value, if a bad one
        {"s --out o --timeout nan",    badTimeout},
        {"s --out o --max-memory 0",   "--max-memory needs a positive number of MiB"},
        {"s --out o --sample 0",       "--sample needs a positive count"},
        {"s --out o --seed -1",        "--seed needs a non-negative integer"},
    });

    EXPECT_EQ(CorpusReportOptions::usage,
              "usage: skintool corpus-report <results.jsonl> --markdown <report.md> --json "
              "<summary.json> [--env <env.json>] [--sample <N>=1000] [--seed <n>=1] [--crashes "
              "<dir>]");
    expectParsed<CorpusReportOptions>({
        {"r --markdown m --json j", {.input = "r", .markdown = "m", .json = "j", .sample = 1000}},
        {"--json i --json j --env e --crashes c --seed 9 --sample 3 r --markdown -m",
         {.input = "r", .markdown = "-m", .json = "j", .env = "e", .sample = 3, .seed = 9,
          .crashes = "c"}},
        {"--markdown m --json j", "missing <results.jsonl>"},
        {"r --json j",            "missing --markdown <report.md>"},
        {"r --markdown m",        "missing --json <summary.json>"},
        {"r s",                   "only one <results.jsonl> is accepted"},
        {"r --json --env",        "--json needs a file"},
        {"r --env",               "--env needs a file"},
        {"r --crashes",           "--crashes needs a folder"},
        {"r --sample -1",         "--sample needs a positive count"},
    });
}
// clang-format on
