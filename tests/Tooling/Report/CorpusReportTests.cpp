#include "SkinKit/Tooling/Report/CorpusReport.h"
#include "tests/support/Golden.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <vector>

using namespace SkinKit;
using namespace SkinKit::CorpusReport;

namespace {

using Records = std::vector<CorpusRecord>;

// As many skins, named by their numbers, each as slow as half its number.
Records repeated(int count, const std::string& status, bool complete)
{
    Records records;
    for (int i = 0; i < count; ++i) {
        const auto name = std::to_string(i);
        records.push_back({.event = "result",
                           .path = status + name,
                           .name = name,
                           .status = status,
                           .mainWindowComplete = complete,
                           .ms = static_cast<double>(i / 2)});
    }
    return records;
}

CorpusSummary summarizeAll(const Records& records)
{
    return summarize(records, std::nullopt, 1000, 1, {});
}

// A key a line; for an array, an element a line.
std::string linesOf(const JSON& json)
{
    std::string text;
    for (const auto& [key, value] : *json.as<JSON::Object>())
        if (const auto* elements = value.as<JSON::Array>())
            for (const JSON& element : *elements)
                text += key + ": " + element.text() + "\n";
        else
            text += key + ": " + value.text() + "\n";
    return text;
}

// One of everything that may be in a results file.
// clang-format off
Records collection()
{
    const auto result = [](std::string path, std::string status, std::optional<std::string> error) {
        return CorpusRecord{.event = "result", .path = path,
                            .name = path.substr(path.find('/') + 1),
                            .status = status, .error = error};
    };
    auto dead = result("x/dead", "crashed", {});
    dead.md5 = "06aa";
    dead.museumUrl = "javascript:alert(1)";
    return {
        {.event = "start", .path = "plain", .t = 1000},
        {.event = "result", .path = "plain", .name = "plain", .md5 = "00aa", .size = 4321,
         .entries = 20, .status = "ok", .mainWindowComplete = true, .ms = 12.34,
         .footprintMiB = 50, .t = 1000.5},
        {.event = "result", .path = "evil", .name = "e|v\n<i>`l` [1](x)", .md5 = "01aa",
         .status = "partial", .mainWindowComplete = false,
         .warnings = {{"Missing BALANCE.BMP", "Missing balance.bmp", "VisColor.txt: bad",
                       "Undecodable gen.bmp",
                       "Missing numbers.bmp and nums_ex.bmp", "Odd | thing"}},
         .ms = 30, .museumUrl = "https://museum.example.org/e v)il"},
        result("broken", "failed", "Unreadable archive: Not a zip archive"),
        result("bare", "failed", "No classic skin bitmaps found"),
        result("silent", "failed", {}),
        result("silent too", "failed", {}),
        {.event = "result", .path = "modern", .name = "modern", .md5 = "03aa", .entries = 99,
         .status = "modern", .warnings = {{"Missing gen.bmp"}}, .ms = 99},
        {.event = "result", .path = "big", .name = "big", .md5 = "05aa", .status = "memory",
         .error = "footprint over 4096 MiB", .ms = 700, .footprintMiB = 4097},
        dead,
        result("y/dead", "timeout", "no result after 10.0 s"), // another skin of that name
        {.event = "result", .path = "copy", .name = "copy", .md5 = "00aa", .of = "plain"},
        dead, // again, by a later run
        {.event = "end", .footprintMiB = 60, .t = 1061},
    };
}
// clang-format on

const JSON environment = JSON::Object{
    {"host",  "a|b"                                              },
    {"tools", JSON::Array{"g++", JSON::Object{{"version", 12.5}}}},
};
const CrashLog crashLogs[] = {
    CrashLog::of("1.log", "06aa\n#0 0x1 in f<int> (x=1)\n#1 0x2 in main ()\n"),
    CrashLog::of("2.log", "y/dead\nfree(): invalid pointer\n"),
    CrashLog::of("other.txt", "nothing"),
};

}

TEST(CorpusReport, WritesTheWholeDocumentAndSummary)
{
    const auto summary = summarize(collection(), environment, 7, 2, crashLogs);
    support::expectGoldenText(markdown(summary), "corpus-report.md");
    support::expectGoldenText(linesOf(summary.json()), "corpus-summary.txt");
}

TEST(CorpusReport, SaysSoWhenThereIsNothingToReport)
{
    const auto summary = summarize(Records(), JSON::Array{"x", 2}, 1000, 1, crashLogs);
    EXPECT_EQ(summary.gate, "gate: FAIL (crashes=0, sample complete=0.0% < 95%)");
    EXPECT_EQ(summary.timing, CorpusSummary::Timing());
    EXPECT_FALSE(summarizeAll({}).json().member("environment"));
    for (const auto* part : {"|---|---|\n| 0 | x |\n| 1 | 2 |\n\n## Headline",
                             "\n## Crash signatures\n\nNone. Crashed, timed out or over-memory "
                             "skins: 0 (3 crash logs).\n"})
        EXPECT_TRUE(markdown(summary).contains(part)) << part;
}

TEST(CorpusReport, CountsTheLastResultOfAPathInPlaceOfItsFirst)
{
    auto records = repeated(2, "crashed", true);
    records.push_back(records[0]);
    records[2].status = "failed";
    const auto summary = summarizeAll(records);
    EXPECT_EQ(summary.counts,
              (CorpusSummary::Counts{.failed = 1, .crashed = 1, .mainWindowComplete = 2}));
    EXPECT_EQ(summary.failureClasses.at(0).key, "unknown");
    EXPECT_EQ(summary.slowest.at(0).status, "failed"); // as slow as the other, but before it

    records[2].of = "b";
    EXPECT_EQ(summarizeAll(records).unique, 1);
    EXPECT_EQ(summarizeAll({{.event = "result"}, {.event = "result"}}).unique, 2); // no path
}

TEST(CorpusReport, PassesTheGateFrom95PerCentWithoutCrashes)
{
    auto records = repeated(19, "ok", true);
    std::ranges::copy(repeated(1, "partial", false), std::back_inserter(records));
    std::ranges::copy(repeated(1, "modern", false),
                      std::back_inserter(records)); // outside the rate
    EXPECT_EQ(summarizeAll(records).gate, "gate: PASS");
    EXPECT_TRUE(summarizeAll(records).gatePass);
    std::ranges::copy(repeated(1, "failed", false), std::back_inserter(records));
    EXPECT_EQ(summarizeAll(records).gate, "gate: FAIL (crashes=0, sample complete=90.5% < 95%)");
    for (const auto* status : {"crashed", "timeout", "memory"})
        EXPECT_EQ(summarizeAll(repeated(1, status, true)).gate,
                  "gate: FAIL (crashes=1, sample complete=100.0% < 95%)");
}

TEST(CorpusReport, KeepsTwentyOfTheSlowestAndFiveExamplesOfAClass)
{
    const auto summary = summarizeAll(repeated(25, "failed", false));
    ASSERT_EQ(summary.slowest.size(), 20U);
    EXPECT_EQ(summary.slowest[1].name, "22"); // as slow as 23, and before it
    EXPECT_EQ(summary.slowest[19].name, "4");
    const auto& failures = summary.failureClasses.at(0);
    EXPECT_EQ(failures.count, 25);
    ASSERT_EQ(failures.examples.size(), 5U);
    EXPECT_EQ(failures.examples[4].name, "4");
}

TEST(CorpusReport, TakesPercentilesByNearestRank)
{
    const std::vector<double> values{10, 20, 30, 40};
    const std::pair<double, double> rows[] = {
        {0,    10},
        {50,   20},
        {51,   30},
        {95,   40},
        {1000, 40}
    };
    for (const auto& [rank, expected] : rows)
        EXPECT_EQ(percentile(values, rank), expected) << rank;
    EXPECT_EQ(percentile({}, 50), 0);
}
