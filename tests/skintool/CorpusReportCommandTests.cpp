#include "SkinKit/Tooling/CommandLine/CorpusOptions.h"
#include "tests/skintool/Skintool.h"

namespace {

class ReportCommand : public SkintoolTest {
protected:
    static Outcome run(const std::string& more = {}, long limitBytes = 0)
    {
        return skintool("corpus-report r.jsonl --markdown r.md --json r.json " + more, limitBytes);
    }
    void writeResults(const std::string& status) const
    {
        write("r.jsonl",
              support::bytes(R"({"event":"result","mainWindowComplete":true,"name":"dead",)"
                             R"("path":"dead.wsz","status":")" +
                             status + "\"}\n"));
    }
};

}

TEST_F(ReportCommand, EndsAsTheGateDoes)
{
    writeResults("ok");
    EXPECT_EQ(run(), (Outcome{0, "gate: PASS\n", ""}));
    EXPECT_TRUE(read("r.md").ends_with("\n\ngate: PASS\n"));
    writeResults("timeout");
    EXPECT_EQ(run(), (Outcome{1, "gate: FAIL (crashes=1, sample complete=100.0% < 95%)\n", ""}));
    EXPECT_TRUE(read("r.json").contains("\"gatePass\": false"));
}

TEST_F(ReportCommand, TakesTheSampleTheEnvironmentAndTheCrashLogs)
{
    writeResults("crashed");
    write("env.json", support::bytes(R"({"cpu":{"cores":[2]},"n":18446744073709551615})"));
    write("logs/dead.log", support::bytes("free(): invalid pointer\n"));
    EXPECT_EQ(run("--env env.json --crashes logs --sample 7 --seed 9").status, 1);
    for (const auto* part : {"\n| cpu | {\"cores\":\\[2\\]} |\n| n | 18446744073709551615 |\n",
                             " | free(): invalid pointer |\n", "\n## Sample of 7 (seed 9)\n"})
        EXPECT_TRUE(read("r.md").contains(part)) << part;
    EXPECT_TRUE(read("r.json").contains("\"n\": 18446744073709551615"));
}

TEST_F(ReportCommand, SaysWhatCannotBeReadAndWritesNothing)
{
    EXPECT_EQ(run(), failure("r.jsonl: No such file or directory"));
    write("r.jsonl", support::bytes("[\n{\"path\":\"a.wsz\"}\n]\n")); // a listing
    EXPECT_EQ(run(), failure("no results in r.jsonl"));
    write("r.jsonl", support::bytes("{\"event\":\"push\"}\n{\"event\":\"end\"}\n"));
    EXPECT_EQ(run(), failure("no results in r.jsonl"));
    writeResults("ok");
    EXPECT_EQ(run("--env none"), failure("none: No such file or directory"));
    EXPECT_EQ(run("--crashes none"), failure("none: No such file or directory"));
    write("env.json", support::bytes(std::string(100'000, '[')));
    EXPECT_EQ(run("--env env.json"), failure("env.json: nested deeper than 64 levels"));
    write("env.json", support::bytes("{\"a\":"));
    EXPECT_EQ(run("--env env.json"), failure("env.json: not JSON at byte 6"));
    std::filesystem::create_symlink("r.md", "dangling");
    for (const std::string json : {"./r.md", "dangling"})
        EXPECT_EQ(run("--json " + json),
                  failure(json + ": is named for both the report and the summary"));
    EXPECT_FALSE(std::filesystem::exists("r.md") || std::filesystem::exists("r.json"));
    EXPECT_EQ(run("--json none/x"), failure("none/x: No such file or directory"));
    EXPECT_EQ(run({}, 100), failure("r.md: File too large"));
    EXPECT_EQ(run("--json /dev/null --markdown /dev/null").status, 0);
}
