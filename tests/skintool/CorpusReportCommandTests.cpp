#include "SkinKit/Base/JSON.h"
#include "SkinKit/Tooling/CommandLine/CorpusOptions.h"
#include "SkinKit/Tooling/Corpus/CorpusRecord.h"
#include "tests/support/Program.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace SkinKit;
using support::bytes;

namespace {

class CorpusReportCommand : public testing::Test {
protected:
    std::string path(std::string_view name) const { return (folder / name).string(); }

    support::Outcome run(std::vector<std::string> more = {}, long limitBytes = 0) const
    {
        std::vector<std::string> arguments{"corpus-report", path("results.jsonl"),
                                           "--markdown",    path("report.md"),
                                           "--json",        path("summary.json")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return support::run(SKINTOOL_PROGRAM, arguments, limitBytes);
    }

    void writeResults(const std::string& status) const
    {
        const CorpusRecord record{.event = "result",
                                  .path = "dead.wsz",
                                  .name = "dead",
                                  .status = status,
                                  .mainWindowComplete = true};
        folder.write("results.jsonl", bytes(record.line() + "\n"));
    }

    std::string text(std::string_view name) const
    {
        return std::string(asText(support::readFile(folder / name)));
    }

    static support::Outcome trouble(const std::string& error)
    {
        return {2, "", "skintool: " + error + "\n"};
    }

    const support::TemporaryFolder folder;
};

}

TEST_F(CorpusReportCommand, EndsAsTheGateDoes)
{
    writeResults("ok");
    const auto passed = run();
    EXPECT_EQ(passed.status, 0);
    EXPECT_EQ(passed.out, "gate: PASS\n");
    EXPECT_EQ(passed.err, "");
    EXPECT_TRUE(text("report.md").ends_with("\n\ngate: PASS\n"));

    writeResults("timeout");
    const auto failed = run();
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.out, "gate: FAIL (crashes=1, sample complete=100.0% < 95%)\n");
    EXPECT_TRUE(text("summary.json").contains("\"gatePass\": false"));
}

TEST_F(CorpusReportCommand, TakesTheSampleTheEnvironmentAndTheCrashLogs)
{
    writeResults("crashed");
    folder.write("env.json", bytes(R"({"cpu":{"cores":[2]},"n":18446744073709551615})"));
    std::filesystem::create_directory(folder / "logs");
    folder.write("logs/dead.log", bytes("free(): invalid pointer\n"));
    const auto outcome =
        run({"--env", path("env.json"), "--crashes", path("logs"), "--sample", "7", "--seed", "9"});
    EXPECT_EQ(outcome.status, 1);
    const std::string report = text("report.md");
    EXPECT_TRUE(report.contains("\n| cpu | {\"cores\":\\[2\\]} |\n| n | 18446744073709551615 |\n"))
        << report;
    EXPECT_TRUE(report.contains(" | free(): invalid pointer |\n")) << report;
    EXPECT_TRUE(report.contains("\n## Sample of 7 (seed 9)\n")) << report;
    const auto summary = JSON::parse(text("summary.json"));
    ASSERT_TRUE(summary);
    EXPECT_EQ(*summary->member("environment"), *JSON::parse(text("env.json")));
}

TEST_F(CorpusReportCommand, TellsHelpAndUsageErrors)
{
    const std::string usage(CorpusReportOptions::usage);
    EXPECT_TRUE(
        support::run(SKINTOOL_PROGRAM, {"corpus-report", "--help"}).out.starts_with(usage + "\n"));
    EXPECT_EQ(support::run(SKINTOOL_PROGRAM, {"corpus-report", "r.jsonl", "--json", "s.json"}),
              trouble("missing --markdown <report.md>\n" + usage));
}

TEST_F(CorpusReportCommand, SaysWhatCannotBeReadAndWritesNothing)
{
    EXPECT_EQ(run(), trouble(path("results.jsonl") + ": No such file or directory"));
    folder.write("results.jsonl", bytes("[\n{\"path\":\"a.wsz\"}\n]\n")); // a listing
    EXPECT_EQ(run(), trouble("no results in " + path("results.jsonl")));
    writeResults("ok");
    const auto none = path("none");
    EXPECT_EQ(run({"--env", none}), trouble(none + ": No such file or directory"));
    EXPECT_EQ(run({"--crashes", none}), trouble(none + ": No such file or directory"));
    const auto env = folder.write("env.json", bytes(std::string(100000, '['))).string();
    EXPECT_EQ(run({"--env", env}), trouble(env + ": nested deeper than 64 levels"));
    folder.write("env.json", bytes("{\"a\":"));
    EXPECT_EQ(run({"--env", env}), trouble(env + ": not JSON at byte 6"));
    EXPECT_FALSE(std::filesystem::exists(folder / "report.md"));
    EXPECT_FALSE(std::filesystem::exists(folder / "summary.json"));
    EXPECT_EQ(run({"--json", path("none/x")}),
              trouble(path("none/x") + ": No such file or directory"));
    EXPECT_EQ(run({}, 100), trouble(path("report.md") + ": File too large"));
}

TEST_F(CorpusReportCommand, NeedsAFileForEachOutputUnlessItIsADevice)
{
    writeResults("ok");
    std::filesystem::create_symlink("report.md", folder / "dangling");
    for (const auto& json : {path("./report.md"), path("dangling")})
        EXPECT_EQ(run({"--json", json}),
                  trouble(json + ": is named for both the report and the summary"));
    EXPECT_EQ(run({"--json", "/dev/null", "--markdown", "/dev/null"}).status, 0);
}
