#include "SkinKit/Tooling/CommandLine/CorpusOptions.h"
#include "SkinKit/Tooling/Corpus/CorpusRunner.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/Collection.h"
#include "tests/support/Pictures.h"
#include "tests/support/Program.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ZipWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <map>
#include <random>

using namespace SkinKit;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using support::bytes;
using support::Outcome;
using support::TemporaryFolder;

namespace {

using Words = std::vector<std::string>;

// One that takes long to read and a lot of memory, by sheets that are as large as may be.
ByteBuffer slowArchive()
{
    const auto largest = support::encodeRLE(support::solidImage({4096, 2048}, {1, 2, 3}), 8);
    support::ZipWriter zip;
    for (const auto* name : {"main.bmp", "text.bmp", "titlebar.bmp", "volume.bmp", "posbar.bmp",
                             "eqmain.bmp", "pledit.bmp", "gen.bmp"})
        zip.add(name, largest);
    return zip.bytes();
}

class Corpus : public testing::Test {
protected:
    Words command(const Words& more = {}) const
    {
        Words words{"corpus", skins.string(), "--out", out.string()};
        words.insert(words.end(), more.begin(), more.end());
        return words;
    }
    Outcome run(const Words& more = {}, long limitBytes = 0) const
    {
        return support::run(SKINTOOL_PROGRAM, command(more), limitBytes);
    }
    void add(const std::string& name, ByteView content) const
    {
        fs::create_directories(skins);
        folder.write("skins/" + name, content);
    }

    // Enough of them that the watchdog finds one in hand, however late it wakes.
    void addSlowSkins() const
    {
        const auto archive = slowArchive();
        for (std::size_t i = 0; i < slowSkins; ++i)
            add(std::to_string(i) + ".wsz", support::withComment(archive, std::to_string(i)));
    }

    std::vector<CorpusRecord> records() const
    {
        return CorpusRecords::readAll(out / "results.jsonl").value();
    }
    // As when the process died while it wrote.
    void tearLastLine(std::uintmax_t bytes) const
    {
        std::error_code missing;
        const auto size = fs::file_size(out / "results.jsonl", missing);
        if (!missing)
            fs::resize_file(out / "results.jsonl", size - std::min(size, bytes));
    }

    static constexpr int maxKills = 1000;

    // Kills the run at random moments, tearing its last line, until one ends by itself; how often.
    int killUntilDone(std::chrono::duration<double> longestLife)
    {
        for (int kills = 0; kills < maxKills; ++kills) {
            const auto life = longestLife * std::uniform_real_distribution<double>(0, 1)(random_);
            const auto outcome =
                support::runAndKill(SKINTOOL_PROGRAM, command({"--resume"}),
                                    std::chrono::duration_cast<std::chrono::microseconds>(life));
            if (outcome.status == 0)
                return kills;
            EXPECT_EQ(outcome.status, 128 + SIGKILL) << outcome.err;
            tearLastLine(random_() % 40);
        }
        return maxKills;
    }

    // The results by path, without what no two runs have in common. Fails when a path has two.
    std::map<std::string, CorpusRecord> results() const
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
    const TemporaryFolder folder;
    const fs::path skins = folder / "skins";
    const fs::path out = folder / "out";

private:
    std::mt19937 random_{20240717};
};

}

TEST_F(Corpus, RunsACollectionAndSaysWhereTheResultsAre)
{
    support::writeCollection(skins, support::readFolder(SKINKIT_SAMPLES), 5);
    add("broken.wsz", bytes("no archive"));
    add("twin.zip", bytes("no archive"));
    const auto outcome = run();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "files:     7\n"
                           "unique:    6\n"
                           "attempted: 6 in this run\n"
                           "results:   " +
                               (out / "results.jsonl").string() + "\n");
    EXPECT_EQ(outcome.err, "[1/6] ok 100.0% partial 0.0% failed 0.0% modern 0.0%\n"
                           "[6/6] ok 83.3% partial 0.0% failed 16.7% modern 0.0%\n");
    EXPECT_EQ(results().size(), 7U);
    EXPECT_EQ(results().at("twin.zip").of, "broken.wsz");

    EXPECT_TRUE(run({"--resume"}).out.contains("\nattempted: 0 in this run\n"));
    EXPECT_EQ(run({"--timeout", "0"}).err,
              "skintool: --timeout needs a positive number of seconds\n" +
                  std::string(CorpusOptions::usage) + "\n");
}

TEST_F(Corpus, WritesNothingForACollectionThatIsNotThere)
{
    const auto outcome = run();
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "skintool: " + skins.string() + ": No such file or directory\n");
    EXPECT_FALSE(fs::exists(out));
}

TEST_F(Corpus, EndsWith124WhenASkinTakesTooLongAndGoesOnWithTheNext)
{
    addSlowSkins();
    const auto outcome = run({"--timeout", "0.001"});
    EXPECT_EQ(outcome.status, 124);
    const auto verdict = records().back();
    EXPECT_EQ(verdict.status, "timeout");
    EXPECT_EQ(verdict.error, "no result after 0.001 s");
    EXPECT_TRUE(outcome.err.ends_with("skintool: " + *verdict.path + ": " + *verdict.error + "\n"))
        << outcome.err;

    EXPECT_EQ(run({"--resume"}).status, 0);
    const auto found = results();
    EXPECT_EQ(found.size(), slowSkins);
    for (const auto& [path, record] : found)
        EXPECT_EQ(record.status == "timeout", path == verdict.path) << path;
}

TEST_F(Corpus, EndsWith125WhenTheProcessTakesTooMuchMemory)
{
    addSlowSkins();
    EXPECT_EQ(run({"--timeout", "3", "--max-memory", "1"}).status, 125);
    EXPECT_EQ(records().back().status, "memory");
    EXPECT_EQ(records().back().error, "footprint over 1 MiB");
}

TEST_F(Corpus, StopsWhenTheDiskIsFullAndKeepsWhatIsWritten)
{
    support::writeCollection(skins, support::readFolder(SKINKIT_SAMPLES), 50);
    constexpr long limit = 8000;
    const auto outcome = run({}, limit);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(outcome.err.ends_with("skintool: " + (out / "results.jsonl").string() +
                                      ": File too large\n"))
        << outcome.err;
    EXPECT_GT(results().size(), 5U);
    EXPECT_EQ(run({"--resume"}).status, 0);
    EXPECT_EQ(results().size(), 50U);
    for (const auto& [path, record] : results())
        EXPECT_EQ(record.status, "ok") << path; // none counts as crashed
}

TEST_F(Corpus, SaysThatItWasInterruptedAndEndsByTheSignal)
{
    addSlowSkins();
    const auto outcome = support::run("/bin/bash", {"-c", R"sh(
        "$1" corpus "$2" --out "$3" &
        until [ -s "$3/results.jsonl" ]; do sleep 0.01; done
        kill -TERM $!
        wait $!)sh",
                                                    "script", SKINTOOL_PROGRAM, skins, out});
    EXPECT_EQ(outcome.status, 128 + SIGTERM);
    const auto left = std::to_string(slowSkins - results().size());
    EXPECT_TRUE(
        outcome.err.ends_with("skintool: interrupted, " + left + " left, continue with --resume\n"))
        << outcome.err;
    EXPECT_EQ(run({"--resume"}).status, 0);
    EXPECT_EQ(results().size(), slowSkins);
}

TEST_F(Corpus, LosesNothingWhenItIsKilledAgainAndAgain)
{
    support::writeCollection(skins, support::readFolder(SKINKIT_SAMPLES), 60);
    add("broken.wsz", bytes("no archive"));
    add("twin.wsz", bytes("no archive"));
    add("modern.wsz", support::SkinBuilder().text("skin.xml", "").zip());
    const auto start = Clock::now();
    ASSERT_EQ(run().status, 0);
    const auto undisturbedTime = Clock::now() - start;
    const auto undisturbed = results();

    // Killed sooner when that was too seldom: the first run may have been a slow one.
    int kills = 0;
    for (auto longestLife = undisturbedTime / 5; kills <= 3; longestLife /= 4) {
        fs::remove_all(out);
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
    std::ifstream lines(out / "results.jsonl");
    int cut = 0;
    for (std::string line; std::getline(lines, line);)
        if (!CorpusRecord::parse(line)) {
            ++cut;
            EXPECT_EQ(line.find("\"event\":"), line.rfind("\"event\":")) << line;
        }
    EXPECT_GT(cut, 0);
}
