#include "SkinKit/Tooling/Corpus/CorpusRunner.h"

#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <future>
#include <limits>
#include <memory>
#include <thread>

using namespace SkinKit;
namespace fs = std::filesystem;
using support::bytes;
using support::SkinBuilder;
using support::TemporaryFolder;

namespace {

using Records = std::vector<CorpusRecord>;
using Names = std::vector<std::string>;

// A collection whose skins are processed by the test.
class CorpusRun : public testing::Test {
protected:
    void add(const std::string& name, std::string_view content) const
    {
        fs::create_directories((folder / ("skins/" + name)).parent_path());
        folder.write("skins/" + name, bytes(content));
    }

    CorpusRunner runner()
    {
        return CorpusRunner(folder / "skins", folder / "a/out", config, hooks,
                            [this](const std::string& line) { lines.push_back(line); },
                            {.advance =
                                 [this](const auto& progress) {
                                     steps.push_back(progress);
                                     if (onStep)
                                         onStep();
                                 },
                             .note = [this](const std::string& text) { notes.push_back(text); },
                             .isCancelled = [this] { return processed.size() == cancelAfter; }});
    }
    std::expected<CorpusRunner::Totals, CorpusRunner::Error> run() { return runner().run(); }
    std::expected<CorpusRunner::Totals, CorpusRunner::Error> resume()
    {
        config.resume = true;
        return run();
    }

    Records records() { return CorpusRecords::readAll(results).value(); }
    // Without what no two runs have in common.
    Records stripped()
    {
        auto all = records();
        for (auto& record : all)
            record.t = record.ms = std::nullopt;
        return all;
    }
    void writeResults(std::string_view text) const
    {
        fs::create_directories(results.parent_path());
        std::ofstream(results) << text;
    }

    const TemporaryFolder folder;
    const fs::path results = folder / "a/out/results.jsonl";
    CorpusRunner::Config config{.timeout = 1000, .maxMemoryMiB = 4096, .pollInterval = 0.005};
    Names processed;
    std::size_t cancelAfter = SIZE_MAX;
    int abortStatus = 0;
    CorpusRunner::Hooks hooks{
        .process =
            [this](const fs::path& file) {
                processed.push_back(file.filename());
                return CorpusOutcome{.entries = 1, .status = "ok", .parseMs = 2, .renderMs = 3};
            },
        .footprint = [] { return ProcessFootprint::Mebibytes{5, 7}; },
        .abort = [this](int status) { abortStatus = status; },
    };
    Names lines, notes;
    std::vector<CorpusRunner::Progress> steps;
    std::function<void()> onStep;
};

constexpr const char* md5OfA = "0cc175b9c0f1b6a831c399e269772661";
constexpr const char* md5OfB = "92eb5ffee6ae2fec3ad71c777531578f";

}

TEST_F(CorpusRun, RecordsEachDistinctSkinOnceAndThenTheDuplicates)
{
    add("b.wsz", "a");
    add("a/x.y.zip", "b");
    add("c.wsz", "b");
    const double before = CorpusRecord::now();
    EXPECT_EQ(run(), (CorpusRunner::Totals{.files = 3, .unique = 2, .attempted = 2}));
    EXPECT_EQ(processed, (Names{"x.y.zip", "b.wsz"}));

    const CorpusRecord start{
        .event = "start", .i = 0, .path = "a/x.y.zip", .name = "x.y", .md5 = md5OfB, .size = 1};
    CorpusRecord result = start;
    result.event = "result";
    result.entries = 1;
    result.status = "ok";
    result.warnings = result.fallbacks = Names{};
    result.parseMs = 2;
    result.renderMs = 3;
    result.footprintMiB = 7;
    const auto found = stripped();
    ASSERT_EQ(found.size(), 6U);
    EXPECT_EQ(found[0], start);
    EXPECT_EQ(found[1], result);
    EXPECT_EQ(found[2].path, "b.wsz");
    EXPECT_EQ(found[3].i, 1);
    EXPECT_EQ(found[4], (CorpusRecord{.event = "result",
                                      .path = "c.wsz",
                                      .name = "c",
                                      .md5 = md5OfB,
                                      .size = 1,
                                      .of = "a/x.y.zip"}));
    EXPECT_EQ(found[5], (CorpusRecord{.event = "end", .footprintMiB = 7}));
    for (const auto& record : records()) {
        EXPECT_GE(record.t, before);
        EXPECT_LE(record.t, CorpusRecord::now());
        EXPECT_EQ(record.ms.has_value(), record.status.has_value());
    }
    EXPECT_EQ(abortStatus, 0);
}

TEST_F(CorpusRun, KeepsOldResultsUnderAnotherNameUnlessItResumesByTheOldListing)
{
    const std::string old = "{\"event\":\"start\",\"path\":\"old.wsz\"}\n";
    const std::string backup = results.string() + "~";
    add("a.wsz", "a");
    writeResults(old);
    EXPECT_TRUE(run());
    EXPECT_EQ(notes, Names{results.string() + ": earlier results kept as " + backup});
    EXPECT_EQ(support::readFile(backup), bytes(old));
    EXPECT_EQ(records().size(), 3U);

    processed.clear();
    writeResults(""); // as after a kill: nothing that could take the older ones' place
    EXPECT_TRUE(run());
    EXPECT_EQ(support::readFile(backup), bytes(old));

    notes.clear();
    add("b/b.wsz", "b");
    EXPECT_EQ(resume(), (CorpusRunner::Totals{.files = 1, .unique = 1, .attempted = 0}));
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_TRUE(notes[0].contains("/listing.json: listing of 2")) << notes[0];
    EXPECT_TRUE(
        notes[0].ends_with(" reused, 1 new file ignored; to start over, run without --resume"))
        << notes[0];
    EXPECT_EQ(records().size(), 4U); // another "end"
    // One that is no listing is made anew.
    folder.write("a/out/listing.json", bytes("[{]"));
    EXPECT_EQ(resume(), (CorpusRunner::Totals{.files = 2, .unique = 2, .attempted = 1}));
    EXPECT_EQ(processed, (Names{"a.wsz", "b.wsz"}));
}

TEST_F(CorpusRun, CallsASkinThatNeverAnsweredCrashed)
{
    add("a.wsz", "a");
    add("b.wsz", "b");
    writeResults("{\"event\":\"start\",\"i\":9,\"md5\":\"0CC\",\"path\":\"gone.wsz\",\"t\":1}\n"
                 "{\"event\":\"result\",\"path\":\"x\",\"status\":\"timeout\"}\n"
                 "{\"event\":\"start\",\"i\":0,\"path\":\"a.wsz\",\"size\":1,\"t\":1}\n"
                 "{\"event\":\"start\",\"i\":0,\"path\":\"a.wsz\",\"size\":1,\"t\":2}\n"
                 "{\"event\":\"result\",\"path\":\"a.ws"); // cut off
    EXPECT_EQ(resume(), (CorpusRunner::Totals{.files = 2, .unique = 2, .attempted = 1}));
    EXPECT_EQ(processed, Names{"b.wsz"});
    const auto found = stripped();
    ASSERT_EQ(found.size(), 9U);
    EXPECT_EQ(found[4], (CorpusRecord{.event = "result",
                                      .i = 9,
                                      .path = "gone.wsz",
                                      .md5 = "0CC",
                                      .status = "crashed",
                                      .restart = 2}));
    EXPECT_EQ(found[5], (CorpusRecord{.event = "result",
                                      .i = 0,
                                      .path = "a.wsz",
                                      .size = 1,
                                      .status = "crashed",
                                      .restart = 3}));
    EXPECT_GT(records()[5].t, 1000);
}

TEST_F(CorpusRun, TakesASampleWithItsDuplicates)
{
    for (const auto* name : {"a1.wsz", "a2.wsz"})
        add(name, "a");
    for (const auto* name : {"b1.wsz", "b2.wsz"})
        add(name, "b");
    config.sample = 1;
    EXPECT_EQ(run(), (CorpusRunner::Totals{.files = 4, .unique = 2, .attempted = 1}));
    const auto found = records();
    ASSERT_EQ(found.size(), 4U);
    EXPECT_EQ(found[2].of, found[0].path);
}

TEST_F(CorpusRun, AddsWhatTheManifestSays)
{
    add("a.wsz", "a");
    add("b.wsz", "b");
    config.manifest = folder.write(
        "manifest.json",
        bytes(
            R"([{"md5":"x"},{"museum_url":"u"},{"md5":7},{"md5":")" + std::string(md5OfA) +
            R"(","nsfw":1},{"md5":"0CC175B9C0F1B6A831C399E269772661","museum_url":"http://a/","nsfw":true}])"));
    EXPECT_TRUE(run());
    for (const auto& record : records()) {
        const bool isA = record.md5 == md5OfA;
        EXPECT_EQ(record.museumUrl, isA ? std::optional<std::string>("http://a/") : std::nullopt);
        EXPECT_EQ(record.nsfw, isA ? std::optional(true) : std::nullopt);
    }
}

TEST_F(CorpusRun, WritesNothingWhenItCantRead)
{
    EXPECT_EQ(run().error().description,
              (folder / "skins").string() + ": No such file or directory");
    folder.write("skins", {});
    EXPECT_EQ(run().error().description, (folder / "skins").string() + ": Not a directory");
    fs::remove(folder / "skins");
    add("a.wsz", "a");
    writeResults("old\n");
    for (const auto& [content, error] : std::vector<std::pair<std::string, std::string>>{
             {"[",            "not JSON at byte 2"     },
             {"{}",           "not an array of objects"},
             {"[{},\"md5\"]", "not an array of objects"},
    }) {
        config.manifest = folder.write("manifest.json", bytes(content));
        EXPECT_EQ(run().error().description, config.manifest->string() + ": " + error);
    }
    config.manifest = folder / "missing";
    EXPECT_FALSE(run());
    config.manifest.reset();
    ASSERT_EQ(::mkfifo((folder / "a/out/listing.json").c_str(), 0600), 0);
    EXPECT_EQ(run().error().description,
              (folder / "a/out/listing.json").string() + ": Operation not supported");
    EXPECT_EQ(support::readFile(results), bytes("old\n"));
}

TEST_F(CorpusRun, RefusesAFolderWhereAnotherRunWrites)
{
    add("a.wsz", "a");
    std::string second;
    hooks.process = [&](const fs::path&) {
        auto other = hooks;
        other.process = nullptr;
        const auto outcome =
            CorpusRunner(folder / "skins", folder / "a/out", config, other, nullptr).run();
        second = outcome ? "" : outcome.error().description;
        return CorpusOutcome{.status = "ok"};
    };
    EXPECT_TRUE(run());
    EXPECT_EQ(second, results.string() + ": another run is writing to it");
    EXPECT_EQ(records().size(), 3U);
}

TEST_F(CorpusRun, StopsWhenItsResultsAreDeletedUnderneath)
{
    add("a.wsz", "a");
    add("b.wsz", "b");
    hooks.process = [&](const fs::path& file) {
        processed.push_back(file.filename());
        fs::remove(results);
        return CorpusOutcome{.status = "ok"};
    };
    EXPECT_EQ(run().error().description,
              results.string() + ": deleted or renamed while the run was writing to it");
    EXPECT_EQ(processed, Names{"a.wsz"});
}

TEST_F(CorpusRun, OpensFilesWhoseNamesAreNotTextAlsoOnResume)
{
    add("x\xFE.wsz", "a");
    add("x\xFF.wsz", "b");
    EXPECT_EQ(run()->attempted, 2);
    writeResults(""); // as after a kill: all is to do again, from the listing
    EXPECT_EQ(resume()->attempted, 2);
    EXPECT_EQ(processed, (Names{"x\xFE.wsz", "x\xFF.wsz", "x\xFE.wsz", "x\xFF.wsz"}));
    EXPECT_EQ(records()[0].path, "x\uFFFD.wsz");
    EXPECT_EQ(records()[0].name, "x\uFFFD");
    EXPECT_EQ(records()[2].path, "x\uFFFD (2).wsz");
    EXPECT_EQ(resume()->attempted, 0);
}

TEST_F(CorpusRun, TellsItsProgress)
{
    EXPECT_EQ(config.skinsBetweenLines, 1000);
    config.skinsBetweenLines = 3;
    for (int i = 0; i < 5; ++i)
        add(std::to_string(i) + ".wsz", std::to_string(i));
    add("5.wsz", "4");
    hooks.process = [&](const fs::path& file) {
        return CorpusOutcome{.status = file.stem() == "3" ? "failed" : "ok"};
    };
    EXPECT_TRUE(run());
    EXPECT_EQ(lines, (Names{"[1/5] ok 100.0% partial 0.0% failed 0.0% modern 0.0%",
                            "[4/5] ok 75.0% partial 0.0% failed 25.0% modern 0.0%",
                            "[5/5] ok 80.0% partial 0.0% failed 20.0% modern 0.0%"}));
    ASSERT_EQ(steps.size(), 7U + 6U + 2U);
    EXPECT_EQ(steps[6].phase, CorpusRunner::Progress::Phase::listing);
    EXPECT_EQ(steps[6].done, 6);
    EXPECT_EQ(steps[12].done, 5);
    EXPECT_EQ(steps[12].tally.at("failed"), 1);
    EXPECT_EQ(steps[14].phase, CorpusRunner::Progress::Phase::duplicates);

    add("new.wsz", "new");
    fs::remove(folder / "a/out/listing.json");
    lines.clear();
    EXPECT_TRUE(resume()); // a line for this run's only skin, and the last
    EXPECT_EQ(lines, Names(2, "[1/6] ok 100.0% partial 0.0% failed 0.0% modern 0.0%"));
    EXPECT_EQ(steps[steps.size() - 3].before, 5);
    EXPECT_EQ(CorpusRunner::progressLine(0, 0,
                                         {
                                             std::pair{"ok", 3}
    }),
              "[0/0] ok 0.0% partial 0.0% failed 0.0% modern 0.0%");
}

namespace {

// Holds the skin in hand until the watchdog has spoken.
class CorpusWatch : public CorpusRun {
protected:
    CorpusWatch()
    {
        add("a.wsz", "a");
        add("b.wsz", "b");
        hooks.process = [this](const fs::path& file) {
            processed.push_back(file.filename());
            aborted->get_future().wait();
            return CorpusOutcome{.status = "ok"};
        };
        // The runner may be gone before this ends.
        hooks.abort = [this, promise = aborted](int status) {
            abortStatus = status;
            promise->set_value();
        };
    }

    // What the watchdog wrote for the first skin; the run must have ended with it.
    CorpusRecord verdict()
    {
        EXPECT_EQ(run(),
                  (CorpusRunner::Totals{.files = 2, .unique = 2, .attempted = 0, .aborted = true}));
        EXPECT_EQ(processed, Names{"a.wsz"});
        const auto found = records();
        EXPECT_EQ(found.size(), 2U);
        EXPECT_EQ(notes, Names{"a.wsz: " + found.back().error.value_or("")});
        return found.back();
    }

    const std::shared_ptr<std::promise<void>> aborted = std::make_shared<std::promise<void>>();
};

}

TEST_F(CorpusWatch, AnswersForASkinThatTakesTooLong)
{
    config.timeout = 0.05;
    config.manifest =
        folder.write("m.json", bytes(R"([{"nsfw":false,"md5":")" + std::string(md5OfA) + R"("}])"));
    const auto record = verdict();
    EXPECT_EQ(abortStatus, 124);
    EXPECT_GT(record.ms, 50);
    EXPECT_EQ(record, (CorpusRecord{.event = "result",
                                    .i = 0,
                                    .path = "a.wsz",
                                    .name = "a",
                                    .md5 = md5OfA,
                                    .size = 1,
                                    .status = "timeout",
                                    .error = "no result after 0.05 s",
                                    .ms = record.ms,
                                    .footprintMiB = 7,
                                    .t = record.t,
                                    .nsfw = false}));

    // The next run takes the other.
    hooks.process = [&](const fs::path& file) {
        processed.push_back(file.filename());
        return CorpusOutcome{.status = "ok"};
    };
    EXPECT_EQ(resume()->attempted, 1);
    EXPECT_EQ(processed, (Names{"a.wsz", "b.wsz"}));
}

TEST_F(CorpusWatch, AnswersForASkinThatTakesTooMuchMemory)
{
    hooks.footprint = [] { return ProcessFootprint::Mebibytes{4097, 5000}; };
    const auto record = verdict();
    EXPECT_EQ(abortStatus, 125);
    EXPECT_EQ(record.status, "memory");
    EXPECT_EQ(record.error, "footprint over 4096 MiB");
    EXPECT_EQ(record.footprintMiB, 5000);
}

TEST_F(CorpusWatch, LeavesASkinAtTheLimitsAlone)
{
    config.timeout = std::numeric_limits<double>::infinity();
    hooks.footprint = [] { return ProcessFootprint::Mebibytes{4096, 5000}; };
    hooks.process = [&](const fs::path&) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50)); // ten looks
        return CorpusOutcome{.status = "ok"};
    };
    EXPECT_EQ(run()->attempted, 2);
    EXPECT_EQ(abortStatus, 0);
}

TEST_F(CorpusRun, DoesNotCountTheTimeForWhichTheProcessIsStopped)
{
    add("a.wsz", "a");
    config.timeout = 0.4;
    config.pollInterval = 0.04;
    hooks.process = [](const fs::path&) {
        ::raise(SIGSTOP);
        std::this_thread::sleep_for(std::chrono::milliseconds(100)); // two looks
        return CorpusOutcome{.status = "ok"};
    };
    const pid_t process = ::fork();
    if (process == 0)
        ::_exit(run()->aborted ? 1 : 0);
    int status = 0;
    ASSERT_EQ(::waitpid(process, &status, WUNTRACED), process);
    ASSERT_TRUE(WIFSTOPPED(status));
    std::this_thread::sleep_for(std::chrono::milliseconds(800));
    ::kill(process, SIGCONT);
    ASSERT_EQ(::waitpid(process, &status, 0), process);
    EXPECT_EQ(status, 0);
    EXPECT_LT(records().at(1).ms, 400);
}

TEST_F(CorpusRun, GivesTheMemoryThatASkinFreedBackBeforeTheNext)
{
    constexpr std::size_t mebibyte = 1 << 20;
    // In blocks of that size, the last of which is returned.
    const auto takeAndFree = [](std::size_t mebibytes, std::size_t blockBytes) {
        std::vector<ByteBuffer> blocks;
        for (std::size_t i = 0; i < mebibytes * mebibyte / blockBytes; ++i)
            blocks.emplace_back(blockBytes, 1);
        return std::move(blocks.back());
    };
    const auto before = ProcessFootprint::mebibytes().current;
    takeAndFree(80, mebibyte / 16);
    Process::releaseFreeMemory();
    if (ProcessFootprint::mebibytes().current > before + 20)
        GTEST_SKIP() << "a sanitizer keeps what is freed";

    add("a.wsz", "a");
    add("b.wsz", "b");
    config.maxMemoryMiB = before + 100;
    hooks.footprint = ProcessFootprint::mebibytes;
    std::vector<ByteBuffer> kept;
    std::vector<std::int64_t> footprints;
    hooks.process = [&](const fs::path&) {
        footprints.push_back(ProcessFootprint::mebibytes().current);
        kept.push_back(takeAndFree(80, mebibyte / 16)); // behind what is freed, which so stays
        return CorpusOutcome{.status = "ok"};
    };
    EXPECT_TRUE(run());
    EXPECT_GT(ProcessFootprint::mebibytes().lifetimeMax, footprints.at(0) + 70);
    EXPECT_LT(footprints.at(1), footprints.at(0) + 20);
}

TEST_F(CorpusWatch, EndsTheProcessWithoutAVerdictThatCantBeWritten)
{
    config.timeout = 0.05;
    const auto process = hooks.process;
    hooks.process = [&](const fs::path& file) {
        fs::remove(results);
        return process(file);
    };
    EXPECT_TRUE(run()->aborted);
    EXPECT_EQ(abortStatus, 2);
    EXPECT_EQ(notes,
              Names{results.string() + ": deleted or renamed while the run was writing to it"});
}

TEST_F(CorpusRun, CanBeCancelledBetweenSkins)
{
    for (const auto* name : {"a.wsz", "b.wsz", "c.wsz"})
        add(name, name);
    cancelAfter = 2;
    EXPECT_EQ(run(), (CorpusRunner::Totals{
                         .files = 3, .unique = 3, .attempted = 2, .left = 1, .cancelled = true}));
    EXPECT_EQ(records().back().path, "b.wsz");
    EXPECT_EQ(records().back().event, "result"); // not the end
    cancelAfter = SIZE_MAX;
    EXPECT_EQ(resume()->attempted, 1);
}

TEST_F(CorpusRun, DoesNotGoOnByTheListingOfAnotherRun)
{
    add("old.wsz", "a");
    EXPECT_TRUE(run());
    fs::remove(folder / "skins/old.wsz");
    add("a/new.wsz", "b");
    // A listing that can't be written ends the run, as a kill would, after the old one is gone.
    onStep = [&] { fs::create_directories(folder / "a/out/listing.json/in the way"); };
    EXPECT_FALSE(run());
    onStep = nullptr;
    fs::remove_all(folder / "a/out/listing.json");
    processed.clear();
    EXPECT_TRUE(resume());
    EXPECT_EQ(processed, Names{"new.wsz"});
}

TEST(CorpusRunner, ProcessesSkinsOfAllKinds)
{
    const TemporaryFolder folder;
    const auto process = [&](std::string_view name, ByteView content) {
        auto outcome = CorpusRunner::processSkin(folder.write(name, content));
        EXPECT_GT(outcome.parseMs, 0);
        outcome.parseMs = 0;
        if (outcome.renderMs) {
            EXPECT_GT(*outcome.renderMs, 0);
            outcome.renderMs = 0;
        }
        return outcome;
    };
    const auto ok = process("ok.wsz", SkinBuilder().allSheets().zip());
    EXPECT_EQ(ok, (CorpusOutcome{.entries = 16,
                                 .status = "ok",
                                 .mainWindowComplete = true,
                                 .fallbacks = SkinBuilder().allSheets().parse()->fallbacks,
                                 .renderMs = 0}));
    const auto partial =
        process("partial.wsz", SkinBuilder().allSheets().without("main.bmp").zip());
    EXPECT_EQ(partial.status, "partial");
    EXPECT_EQ(partial.mainWindowComplete, false);
    EXPECT_EQ(partial.warnings, Names{"Missing main.bmp"});
    EXPECT_EQ(process("modern.wsz", SkinBuilder().allSheets().text("skin.xml", "").zip()),
              (CorpusOutcome{.entries = 17, .status = "modern"}));
    EXPECT_EQ(process("none.wsz", SkinBuilder().text("a.txt", "").zip()),
              (CorpusOutcome{
                  .entries = 1, .status = "failed", .error = "No classic skin bitmaps found"}));
    const auto unreadable = process("unreadable.wsz", bytes("no archive"));
    EXPECT_EQ(unreadable.status, "failed");
    EXPECT_EQ(unreadable.entries, 0);
    EXPECT_TRUE(unreadable.error->starts_with("Unreadable archive: ")) << *unreadable.error;
}

TEST(CorpusRunner, LooksTenTimesInASkinsTimeWithinReason)
{
    const auto interval = [](double timeout) {
        return CorpusRunner::Config::of({.timeout = timeout}).pollInterval;
    };
    EXPECT_EQ(interval(1), 0.1);
    EXPECT_EQ(interval(10), 0.25);
    EXPECT_EQ(interval(std::numeric_limits<double>::infinity()), 0.25);
    EXPECT_EQ(interval(0.001), 0.005);
}
