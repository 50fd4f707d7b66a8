#include "SkinKit/Tooling/Corpus/CorpusRecord.h"
#include "tests/skintool/Skintool.h"
#include "tests/support/Collection.h"
#include "tests/support/Pictures.h"
#include "tests/support/ZipWriter.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <map>
#include <random>

using namespace SkinKit;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using support::bytes;

namespace {

class Corpus : public SkintoolTest {
protected:
    static Outcome run(const std::string& more = {})
    {
        return skintool("corpus skins --out out " + more);
    }
    static void addSamples(std::size_t count)
    {
        support::writeCollection("skins", support::readFolder(SKINKIT_SAMPLES), count);
    }
    // Skins that take long to read and a lot of memory, by sheets that are as large as may be; so
    // many that the watchdog finds one being read, however late it wakes.
    static void addSlowSkins()
    {
        const auto largest = support::encodeRLE(support::solidImage({4096, 2048}, {1, 2, 3}), 8);
        support::ZipWriter zip;
        for (const auto* name : {"main.bmp", "text.bmp", "titlebar.bmp", "volume.bmp", "posbar.bmp",
                                 "eqmain.bmp", "pledit.bmp", "gen.bmp"})
            zip.add(name, largest);
        support::writeCollection("skins", {zip.bytes()}, slowSkins);
    }

    static std::vector<CorpusRecord> records() { return CorpusRecords::readAll(file).value(); }
    static constexpr int maxKills = 1000;

    // Kills the run at random moments, tearing its last line, until one ends by itself; how often.
    int killUntilDone(std::chrono::duration<double> longestLife)
    {
        for (int kills = 0; kills < maxKills; ++kills) {
            const auto life = longestLife * std::uniform_real_distribution<double>(0, 1)(random_);
            const auto outcome =
                support::run(SKINTOOL_PROGRAM, support::words("corpus skins --out out --resume"),
                             {.life = std::chrono::duration_cast<std::chrono::microseconds>(life)});
            if (outcome.status == 0)
                return kills;
            EXPECT_EQ(outcome.status, 128 + SIGKILL) << outcome.err;
            const auto size = fs::exists(file) ? fs::file_size(file) : 0;
            if (size > 0)
                fs::resize_file(file, size - std::min<std::uintmax_t>(size, random_() % 40));
        }
        return maxKills;
    }

    // The results by path, without what no two runs have in common. Fails when a path has two.
    static std::map<std::string, CorpusRecord> results()
    {
        std::map<std::string, CorpusRecord> byPath;
        for (auto record : records()) {
            if (record.event != "result")
                continue;
            record.t = record.ms = record.parseMs = record.renderMs = std::nullopt;
            record.footprintMiB = record.restart = std::nullopt;
            EXPECT_TRUE(byPath.emplace(*record.path, record).second) << *record.path;
        }
        return byPath;
    }

    static constexpr std::size_t slowSkins = 8;
    inline static const fs::path file = "out/results.jsonl";

private:
    std::mt19937 random_{20240717};
};

}

TEST_F(Corpus, RunsACollectionAndSaysWhereTheResultsAre)
{
    addSamples(5);
    write("skins/broken.wsz", bytes("no archive"));
    write("skins/twin.zip", bytes("no archive"));
    EXPECT_EQ(run(), (Outcome{0,
                              "files:     7\nunique:    6\nattempted: 6 in this run\n"
                              "results:   out/results.jsonl\n",
                              "[1/6] ok 100.0% partial 0.0% failed 0.0% modern 0.0%\n"
                              "[6/6] ok 83.3% partial 0.0% failed 16.7% modern 0.0%\n"}));
    EXPECT_EQ(results().size(), 7U);
    EXPECT_EQ(results().at("twin.zip").of, "broken.wsz");
    EXPECT_TRUE(run("--resume").out.contains("\nattempted: 0 in this run\n"));
}

TEST_F(Corpus, EndsWhenASkinTakesTooMuchTimeOrMemoryAndGoesOnWithTheNext)
{
    addSlowSkins();
    const auto outcome = run("--timeout 0.001");
    EXPECT_EQ(outcome.status, 124);
    const auto verdict = records().back();
    EXPECT_EQ(verdict.status, "timeout");
    EXPECT_EQ(verdict.error, "no result after 0.001 s");
    EXPECT_TRUE(outcome.err.ends_with("skintool: " + *verdict.path + ": " + *verdict.error + "\n"))
        << outcome.err;

    EXPECT_EQ(run("--resume --max-memory 1").status, 125);
    EXPECT_EQ(records().back().status, "memory");
    EXPECT_EQ(records().back().error, "footprint over 1 MiB");

    EXPECT_EQ(run("--resume").status, 0);
    EXPECT_EQ(results().size(), slowSkins);
    EXPECT_EQ(results().at(*verdict.path).status, "timeout");
}

TEST_F(Corpus, SaysThatItWasInterruptedAndEndsByTheSignal)
{
    addSlowSkins();
    const auto outcome = support::run("/bin/bash", {"-c", R"sh(
        "$1" corpus skins --out out &
        until [ -s out/results.jsonl ]; do sleep 0.01; done
        kill -TERM $!
        wait $!)sh",
                                                    "script", SKINTOOL_PROGRAM});
    EXPECT_EQ(outcome.status, 128 + SIGTERM);
    const auto left = std::to_string(slowSkins - results().size());
    EXPECT_TRUE(
        outcome.err.ends_with("skintool: interrupted, " + left + " left, continue with --resume\n"))
        << outcome.err;
    EXPECT_EQ(run("--resume").status, 0);
    EXPECT_EQ(results().size(), slowSkins);
}

TEST_F(Corpus, LosesNothingWhenItIsKilledAgainAndAgain)
{
    addSamples(60);
    for (const auto* name : {"skins/broken.wsz", "skins/twin.wsz"})
        write(name, bytes("no archive"));
    write("skins/modern.wsz", support::SkinBuilder().text("skin.xml", "").zip());
    const auto start = Clock::now();
    ASSERT_EQ(run().status, 0);
    const auto undisturbedTime = Clock::now() - start;
    const auto undisturbed = results();

    // Killed sooner when that was too seldom: the first run may have been a slow one.
    int kills = 0;
    for (auto longestLife = undisturbedTime / 5; kills <= 3; longestLife /= 4) {
        fs::remove_all("out");
        kills = killUntilDone(std::chrono::duration<double>(longestLife));
        ASSERT_LT(kills, maxKills);
    }

    int crashes = 0;
    const auto found = results();
    ASSERT_EQ(found.size(), undisturbed.size());
    for (const auto& [path, record] : found)
        if (record.status == "crashed")
            ++crashes;
        else
            EXPECT_EQ(record.line(), undisturbed.at(path).line());
    EXPECT_LE(crashes, kills);

    // A line that was cut off stands alone.
    std::ifstream lines(file);
    int cut = 0;
    for (std::string line; std::getline(lines, line);)
        if (!CorpusRecord::parse(line)) {
            ++cut;
            EXPECT_EQ(line.find("\"event\":"), line.rfind("\"event\":")) << line;
        }
    EXPECT_GT(cut, 0);
}
