#include "SkinKit/Tooling/Report/CorpusReport.h"
#include "tests/support/Golden.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

using namespace SkinKit;
using namespace SkinKit::CorpusReport;

namespace {

using Records = std::vector<CorpusRecord>;

CorpusRecord result(std::string path, std::string status)
{
    return {.event = "result", .path = path, .name = path, .status = status};
}

CorpusRecord complete(std::string path)
{
    CorpusRecord record = result(std::move(path), "ok");
    record.mainWindowComplete = true;
    return record;
}

CorpusSummary summarizeAll(const Records& records)
{
    return summarize(records, std::nullopt, 1000, 1, {});
}

Records repeated(int count, const std::function<CorpusRecord(std::string)>& make)
{
    Records records;
    for (int i = 0; i < count; ++i)
        records.push_back(make(std::to_string(i)));
    return records;
}

// One of everything that may stand in a results file.
// clang-format off
Records collection()
{
    const CorpusRecord dead{.event = "result", .path = "dead.wsz", .name = "dead", .md5 = "06aa",
                            .status = "crashed", .restart = 1, .museumUrl = "javascript:alert(1)"};
    auto deadAgain = dead;
    deadAgain.restart = 2;
    return {
        {.event = "start", .path = "plain.wsz", .t = 1000},
        {.event = "result", .path = "plain.wsz", .name = "plain", .md5 = "00aa", .size = 4321,
         .entries = 20, .status = "ok", .mainWindowComplete = true, .ms = 12.34,
         .footprintMiB = 50, .t = 1000.5},
        {.event = "result", .path = "x/evil.wsz", .name = "e|v\n<i>`l` [1](x)", .md5 = "01aa",
         .status = "partial", .mainWindowComplete = false,
         .warnings = {{"Missing BALANCE.BMP", "Missing balance.bmp", "Undecodable gen.bmp",
                       "VisColor.txt: bad", "Odd | thing"}},
         .ms = 30, .museumUrl = "https://museum.example.org/e v)il"},
        {.event = "result", .path = "broken.wsz", .name = "broken", .md5 = "02aa", .size = 10,
         .entries = 0, .status = "failed", .error = "Unreadable archive: Not a zip archive", .ms = 1},
        {.event = "result", .path = "silent.wsz", .name = "silent", .status = "failed"},
        {.event = "result", .path = "empty.wsz", .name = "empty", .status = "failed", .error = ""},
        {.event = "result", .path = "modern.wsz", .name = "modern", .md5 = "03aa", .entries = 99,
         .status = "modern", .warnings = {{"Missing gen.bmp"}}, .ms = 99},
        {.event = "result", .path = "slow.wsz", .name = "slow", .md5 = "04aa", .status = "timeout",
         .error = "no result after 10.0 s", .ms = 10250.4},
        {.event = "result", .path = "big.wsz", .name = "big", .md5 = "05aa", .status = "memory",
         .error = "footprint over 4096 MiB", .ms = 700, .footprintMiB = 4097},
        dead,
        {.event = "result", .path = "copy.wsz", .name = "copy", .md5 = "00aa", .of = "plain.wsz"},
        {.event = "result", .path = "plain.wsz", .name = "copy", .status = "duplicate", .ms = 5},
        deadAgain,
        {.event = "end", .footprintMiB = 60, .t = 1061},
    };
}
// clang-format on

const JSON environment = JSON::Object{
    {"cores", 2                                                  },
    {"host",  "a|b"                                              },
    {"tools", JSON::Array{"g++", JSON::Object{{"version", 12.5}}}},
};
const CrashLog crashLogs[] = {
    CrashLog::of("1.log", "06aa\n#0 0x1 in f<int> (x=1)\n#1 0x2 in main ()\n"),
    CrashLog::of("dead.txt", "free(): invalid pointer\n"),
    CrashLog::of("other.txt", "nothing"),
};

}

TEST(CorpusReport, WritesTheWholeDocumentAndSummary)
{
    const auto summary = summarize(collection(), environment, 7, 2, crashLogs);
    support::expectGoldenText(markdown(summary), "corpus-report.md");
    support::expectGoldenText(summary.json().text(2) + "\n", "corpus-summary.json");
}

TEST(CorpusReport, SaysSoWhenThereIsNothingToReport)
{
    const auto summary = summarize(Records(), std::nullopt, 1000, 1, crashLogs);
    EXPECT_EQ(summary.gate, "gate: FAIL (crashes=0, sample complete=0.0% < 95%)");
    EXPECT_FALSE(summary.gatePass);
    EXPECT_EQ(summary.timing, CorpusSummary::Timing());
    EXPECT_FALSE(summary.json().member("environment"));
    EXPECT_TRUE(markdown(summary).contains(
        "\n## Crash signatures\n\nNone. Crashed, timed out or over-memory skins: 0 (3 crash "
        "logs).\n"));
}

TEST(CorpusReport, CountsTheLastResultOfAPathAtThePlaceOfItsFirst)
{
    auto late = result("a", "failed");
    late.ms = 7;
    const auto summary = summarizeAll({result("a", "crashed"), complete("b"), late});
    EXPECT_EQ(summary.unique, 2);
    EXPECT_EQ(summary.counts,
              (CorpusSummary::Counts{.ok = 1, .failed = 1, .mainWindowComplete = 1}));
    EXPECT_TRUE(summary.crashed.empty());
    EXPECT_EQ(summary.failureClasses.at(0).key, "unknown");

    auto first = result("a", "ok");
    auto second = result("b", "ok");
    first.ms = second.ms = 7;
    const auto slow = summarizeAll({first, second, late}).slowest;
    EXPECT_EQ(slow.at(0).status, "failed"); // as slow as the other, but before it

    auto duplicate = result("a", "ok");
    duplicate.of = "b";
    EXPECT_EQ(summarizeAll({result("a", "ok"), duplicate}).unique, 0);
    EXPECT_EQ(summarizeAll({{.event = "result"}, {.event = "result"}}).unique, 2); // no path
}

TEST(CorpusReport, PassesTheGateFrom95PerCentWithoutCrashes)
{
    Records records = repeated(19, complete);
    records.push_back(result("incomplete", "partial"));
    EXPECT_EQ(summarizeAll(records).gate, "gate: PASS");
    EXPECT_TRUE(summarizeAll(records).gatePass);

    records.push_back(result("modern", "modern")); // outside the rate
    EXPECT_TRUE(summarizeAll(records).gatePass);
    records.push_back(result("incomplete too", "partial"));
    EXPECT_EQ(summarizeAll(records).gate, "gate: FAIL (crashes=0, sample complete=90.5% < 95%)");

    for (const auto* status : {"crashed", "timeout", "memory"}) {
        auto ended = complete("x");
        ended.status = status;
        EXPECT_EQ(summarizeAll({ended}).gate,
                  "gate: FAIL (crashes=1, sample complete=100.0% < 95%)");
    }
}

TEST(CorpusReport, KeepsTwentyOfTheSlowestAndFiveExamplesOfAClass)
{
    Records records = repeated(25, [](const std::string& i) { return result(i, "failed"); });
    for (std::size_t i = 0; i < records.size(); ++i)
        records[i].ms = static_cast<double>(i / 2);
    const auto summary = summarizeAll(records);
    ASSERT_EQ(summary.slowest.size(), 20U);
    EXPECT_EQ(summary.slowest[0].name, "24");
    EXPECT_EQ(summary.slowest[1].name, "22"); // as slow as 23, and before it
    EXPECT_EQ(summary.slowest[19].name, "4");
    ASSERT_EQ(summary.failureClasses.size(), 1U);
    EXPECT_EQ(summary.failureClasses[0].count, 25);
    EXPECT_EQ(summary.failureClasses[0].examples.size(), 5U);
    EXPECT_EQ(summary.failureClasses[0].examples[4].name, "4");
}

TEST(CorpusReport, SortsTextsIntoClasses)
{
    const std::pair<std::string_view, std::string_view> errors[] = {
        {"Unreadable archive: Not a zip archive", "unreadableArchive" },
        {"No classic skin bitmaps found",         "noBitmaps"         },
        {"Something Else.bmp",                    "Something Else.bmp"},
        {"",                                      ""                  },
    };
    for (const auto& [text, key] : errors)
        EXPECT_EQ(errorClassKey(text), key);
    const std::pair<std::string_view, std::string_view> warnings[] = {
        {"Missing NUMS_EX.BMP",                 "missing nums_ex"            },
        {"Missing numbers.bmp and nums_ex.bmp", "missing numbers and nums_ex"},
        {"Undecodable viscolor.bmp",            "undecodable viscolor"       },
        {"Odd VISCOLOR.TXT",                    "viscolor"                   },
        {"Odd A.BMP",                           "odd a.bmp"                  },
    };
    for (const auto& [text, key] : warnings)
        EXPECT_EQ(warningClassKey(text), key);
}

TEST(CorpusReport, TakesPercentilesByNearestRank)
{
    const std::vector<double> values{10, 20, 30, 40};
    for (const auto& [rank, expected] : std::vector<std::pair<int, double>>{
             {0,    10},
             {50,   20},
             {95,   40},
             {1000, 40}
    })
        EXPECT_EQ(percentile(values, rank), expected) << rank;
    EXPECT_EQ(percentile({}, 50), 0);
}

TEST(CorpusReport, ShowsAnEnvironmentOfAnyShape)
{
    const auto rows = [](const JSON& json) {
        const std::string text = markdown(summarize(Records(), json, 1, 1, {}));
        const auto begin = text.find("|---|---|\n") + 10;
        return text.substr(begin, text.find("\n## Headline") - begin);
    };
    EXPECT_EQ(rows(JSON::Array{"x", 2}), "| 0 | x |\n| 1 | 2 |\n");
    EXPECT_EQ(rows(JSON::Object()), "");
    EXPECT_EQ(rows(true), "| environment | true |\n");
}

TEST(CorpusReport, GivesEachOfTwoSkinsOfOneNameItsOwnSignature)
{
    const Records records{
        {.event = "result", .path = "a/x.wsz", .name = "x", .status = "crashed"},
        {.event = "result", .path = "b/x.wsz", .name = "x", .status = "timeout"},
    };
    const CrashLog logs[] = {CrashLog::of("1.log", "b/x.wsz\n#0 0x1 in parse (x=1)\n")};
    const auto text = CorpusReport::markdown(summarize(records, std::nullopt, 1, 1, logs));
    const auto section = text.substr(text.find("## Crash signatures"));
    EXPECT_EQ(section.find("parse"), section.rfind("parse"));
    EXPECT_GT(section.find("parse"), section.find("|  |\n")); // the first has none
}
