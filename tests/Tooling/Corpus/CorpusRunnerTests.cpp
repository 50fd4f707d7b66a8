#include "SkinKit/Tooling/Corpus/CorpusRunner.h"

#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <future>
#include <limits>
#include <memory>
#include <thread>

using namespace SkinKit;
namespace fs = std::filesystem;
using support::bytes;
using support::SkinBuilder;
using Names = std::vector<std::string>;
using Totals = CorpusRunner::Totals;

namespace {

// A collection whose skins are processed by the test.
class CorpusRun : public testing::Test {
protected:
    CorpusRun() { fs::create_directories(folder / "a/out"); }

    void add(const std::string& name, std::string_view content) const
    {
        fs::create_directories((folder / ("skins/" + name)).parent_path());
        folder.write("skins/" + name, bytes(content));
    }
    void writeResults(std::string_view text) const
    {
        folder.write("a/out/results.jsonl", bytes(text));
    }
    void useManifest(const std::string& text)
    {
        config.manifest = folder.write("manifest.json", bytes(text));
    }

    std::expected<Totals, CorpusRunner::Error> run()
    {
        const CorpusRunner::Callbacks callbacks{
            .advance = [this](const auto& progress) { onStep(progress); },
            .note = [this](const std::string& text) { notes.push_back(text); },
            .isCancelled = [this] { return isCancelled(); }};
        const auto print = [this](const std::string& line) { lines.push_back(line); };
        return CorpusRunner(folder / "skins", folder / "a/out", config, hooks, print, callbacks)
            .run();
    }
    std::expected<Totals, CorpusRunner::Error> resume()
    {
        config.resume = true;
        return run();
    }
    std::string error() { return run().error().description; }

    std::vector<CorpusRecord> records() { return CorpusRecords::readAll(results).value(); }
    // Without what no two runs have in common.
    std::vector<CorpusRecord> stripped()
    {
        auto all = records();
        for (auto& record : all)
            record.t = record.ms = std::nullopt;
        return all;
    }

    const support::TemporaryFolder folder;
    const fs::path results = folder / "a/out/results.jsonl";
    CorpusRunner::Config config{.timeout = 1000, .maxMemoryMiB = 4096, .pollInterval = 0.005};
    Names processed, lines, notes;
    int abortStatus = 0;
    // What processing a skin does, and the status that it gives.
    std::function<std::string(const fs::path&)> onSkin = [](const fs::path&) { return "ok"; };
    std::function<void(const CorpusRunner::Progress&)> onStep = [](const auto&) {};
    std::function<bool()> isCancelled = [] { return false; };
    CorpusRunner::Hooks hooks{
        .process =
            [this](const fs::path& file) {
                processed.push_back(file.filename());
                return CorpusOutcome{
                    .entries = 1, .status = onSkin(file), .parseMs = 2, .renderMs = 3};
            },
        .footprint = [] { return ProcessFootprint::Mebibytes{5, 7}; },
        .abort = [this](int status) { abortStatus = status; },
    };
};

const std::string md5OfA = "0cc175b9c0f1b6a831c399e269772661";
const std::string md5OfB = "92eb5ffee6ae2fec3ad71c777531578f";

}

TEST_F(CorpusRun, RecordsEachDistinctSkinOnceAndThenTheDuplicates)
{
    add("b.wsz", "a");
    add("a/x.y.zip", "b");
    add("c.wsz", "b");
    const double before = CorpusRecord::now();
    EXPECT_EQ(run(), (Totals{.files = 3, .unique = 2, .attempted = 2}));
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
    CorpusRecord duplicate{.event = "result", .path = "c.wsz", .name = "c", .md5 = md5OfB};
    duplicate.size = 1;
    duplicate.of = "a/x.y.zip";
    const auto found = stripped();
    ASSERT_EQ(found.size(), 6U);
    EXPECT_EQ(found[0], start);
    EXPECT_EQ(found[1], result);
    EXPECT_EQ(found[3].i, 1);
    EXPECT_EQ(found[4], duplicate);
    EXPECT_EQ(found[5], (CorpusRecord{.event = "end", .footprintMiB = 7}));
    for (const auto& record : records()) {
        EXPECT_TRUE(record.t >= before && record.t <= CorpusRecord::now());
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
    writeResults(""); // as after a kill: nothing that could take the older ones' place
    EXPECT_TRUE(run());
    EXPECT_EQ(support::readFile(backup), bytes(old));

    notes.clear();
    add("b/b.wsz", "b");
    add("c.wsz", "c");
    EXPECT_EQ(resume(), (Totals{.files = 1, .unique = 1, .attempted = 0}));
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_TRUE(notes[0].contains("/listing.json: listing of 2")) << notes[0];
    EXPECT_TRUE(
        notes[0].ends_with(" reused, 2 new files ignored; to start over, run without --resume"));
    folder.write("a/out/listing.json", bytes("[{]")); // no listing: made again
    EXPECT_EQ(resume(), (Totals{.files = 3, .unique = 3, .attempted = 2}));
}

TEST_F(CorpusRun, DropsTheListingOfAnotherRunBeforeAll)
{
    add("old.wsz", "a");
    EXPECT_TRUE(run());
    fs::remove(folder / "skins/old.wsz");
    add("a/new.wsz", "b");
    // A listing that can't be written ends the run, as a kill would, after the old one is gone.
    onStep = [&](const auto&) { fs::create_directories(folder / "a/out/listing.json/in the way"); };
    EXPECT_FALSE(run());
    onStep = [](const auto&) {};
    fs::remove_all(folder / "a/out/listing.json");
    processed.clear();
    EXPECT_TRUE(resume());
    EXPECT_EQ(processed, Names{"new.wsz"});
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
    EXPECT_EQ(resume(), (Totals{.files = 2, .unique = 2, .attempted = 1}));
    EXPECT_EQ(processed, Names{"b.wsz"});
    CorpusRecord gone{.event = "result", .i = 9, .path = "gone.wsz", .md5 = "0CC"};
    CorpusRecord a{.event = "result", .i = 0, .path = "a.wsz", .size = 1};
    gone.status = a.status = "crashed";
    gone.restart = 2;
    a.restart = 3;
    const auto found = stripped();
    ASSERT_EQ(found.size(), 9U);
    EXPECT_EQ(found[4], gone);
    EXPECT_EQ(found[5], a);
    EXPECT_GT(records()[5].t, 1000);
}

TEST_F(CorpusRun, TakesASampleWithItsDuplicatesAndWhatTheManifestSays)
{
    for (const std::string name : {"a1.wsz", "a2.wsz", "b1.wsz", "b2.wsz"})
        add(name, name.substr(0, 1));
    useManifest(R"([{"md5":"x"},{"museum_url":"u"},{"md5":7},{"md5":")" + md5OfA +
                R"(","nsfw":1},{"md5":"0CC175B9C0F1B6A831C399E269772661","museum_url":"http://a/",)"
                R"("nsfw":true}])");
    config.sample = 1;
    for (config.seed = 1; config.seed < 9; ++config.seed) {
        EXPECT_EQ(run(), (Totals{.files = 4, .unique = 2, .attempted = 1}));
        const auto found = records();
        ASSERT_EQ(found.size(), 4U);
        EXPECT_EQ(found[2].of, found[0].path);
        const bool isA = found[0].md5 == md5OfA;
        EXPECT_EQ(found[1].museumUrl, isA ? std::optional<std::string>("http://a/") : std::nullopt);
        EXPECT_EQ(found[1].nsfw, isA ? std::optional(true) : std::nullopt);
    }
    EXPECT_GT(std::ranges::count(processed, "a1.wsz"), 0);
    EXPECT_GT(std::ranges::count(processed, "b1.wsz"), 0);
}

TEST_F(CorpusRun, WritesNothingWhenItCantRead)
{
    const std::string skins = folder / "skins";
    EXPECT_EQ(error(), skins + ": No such file or directory");
    folder.write("skins", {});
    EXPECT_EQ(error(), skins + ": Not a directory");
    fs::remove(skins);
    add("a.wsz", "a");
    writeResults("old\n");
    const std::pair<std::string, std::string> rows[] = {
        {"[",            "not JSON at byte 2"     },
        {"{}",           "not an array of objects"},
        {"[{},\"md5\"]", "not an array of objects"},
    };
    for (const auto& [content, complaint] : rows) {
        useManifest(content);
        EXPECT_EQ(error(), config.manifest->string() + ": " + complaint);
    }
    config.manifest = folder / "missing";
    EXPECT_FALSE(run());
    config.manifest.reset();
    const std::string listing = folder / "a/out/listing.json";
    ASSERT_EQ(::mkfifo(listing.c_str(), 0600), 0);
    EXPECT_EQ(error(), listing + ": Operation not supported");
    EXPECT_EQ(support::readFile(results), bytes("old\n"));
}

TEST_F(CorpusRun, EndsWhereAnotherRunWritesOrItsResultsAreDeleted)
{
    add("a.wsz", "a");
    add("b.wsz", "b");
    std::string second;
    onSkin = [&](const fs::path&) {
        second = error();
        fs::remove(results);
        return "ok";
    };
    EXPECT_EQ(error(), results.string() + ": deleted or renamed while the run was writing to it");
    EXPECT_EQ(second, results.string() + ": another run is writing to it");
    EXPECT_EQ(processed, Names{"a.wsz"});
}

TEST_F(CorpusRun, StopsInEveryPhaseWhenItIsCancelled)
{
    using Phase = CorpusRunner::Progress::Phase;
    add("a.wsz", "a");
    add("b.wsz", "b");
    add("twin.wsz", "a");
    const std::pair<Phase, Totals> rows[] = {
        {Phase::listing,    {.files = 3, .left = 3}                             },
        {Phase::running,    {.files = 3, .unique = 2, .left = 2}                },
        {Phase::duplicates, {.files = 3, .unique = 2, .attempted = 2, .left = 1}},
    };
    Phase current{};
    onStep = [&](const auto& progress) { current = progress.phase; };
    for (auto [phase, expected] : rows) {
        isCancelled = [&] { return current == phase; };
        expected.cancelled = true;
        EXPECT_EQ(run(), expected);
        EXPECT_EQ(fs::exists(folder / "a/out/listing.json"), phase != Phase::listing);
        for (const auto& record : records())
            EXPECT_TRUE(record.event != "end" && !record.of);
    }
}

TEST_F(CorpusRun, OpensFilesWhoseNamesAreNotTextAlsoOnResume)
{
    add("x\xFE.wsz", "a");
    add("x\xFF.wsz", "b");
    add("x\uFFFD.wsz", "c");
    EXPECT_EQ(run()->attempted, 3);
    writeResults(""); // as after a kill: all is to do again, from the listing
    EXPECT_EQ(resume()->attempted, 3);
    EXPECT_EQ(processed, (Names{"x\uFFFD.wsz", "x\xFE.wsz", "x\xFF.wsz", "x\uFFFD.wsz", "x\xFE.wsz",
                                "x\xFF.wsz"}));
    EXPECT_EQ(records()[0].path, "x\uFFFD.wsz");
    EXPECT_EQ(records()[2].name, "x\uFFFD (2)");
    EXPECT_EQ(records()[4].path, "x\uFFFD (3).wsz");
    EXPECT_EQ(resume()->attempted, 0);
}

TEST_F(CorpusRun, TellsItsProgress)
{
    std::vector<CorpusRunner::Progress> steps;
    onStep = [&](const auto& progress) { steps.push_back(progress); };
    config.skinsBetweenLines = 3;
    for (int i = 0; i < 6; ++i)
        add(std::to_string(i) + ".wsz", std::to_string(std::min(i, 4)));
    onSkin = [](const fs::path& file) { return file.stem() == "3" ? "failed" : "ok"; };
    EXPECT_TRUE(run());
    EXPECT_EQ(lines, (Names{"[1/5] ok 100.0% partial 0.0% failed 0.0% modern 0.0%",
                            "[4/5] ok 75.0% partial 0.0% failed 25.0% modern 0.0%",
                            "[5/5] ok 80.0% partial 0.0% failed 20.0% modern 0.0%"}));
    ASSERT_EQ(steps.size(), 7U + 6U + 2U);
    using Phase = CorpusRunner::Progress::Phase;
    EXPECT_TRUE(steps[6].phase == Phase::listing && steps[6].done == 6);
    EXPECT_TRUE(steps[12].done == 5 && steps[12].tally.at("failed") == 1);
    EXPECT_EQ(steps[14].phase, Phase::duplicates);

    add("new.wsz", "new");
    fs::remove(folder / "a/out/listing.json");
    lines.clear();
    EXPECT_TRUE(resume()); // a line for this run's only skin, and the last
    EXPECT_EQ(lines, Names(2, "[1/6] ok 100.0% partial 0.0% failed 0.0% modern 0.0%"));
    EXPECT_EQ(steps[steps.size() - 3].before, 5);
}

namespace {

// Holds the current skin until the watchdog has ended the run.
class CorpusWatch : public CorpusRun {
protected:
    CorpusWatch()
    {
        add("a.wsz", "a");
        add("b.wsz", "b");
        onSkin = [this](const fs::path&) {
            aborted->get_future().wait();
            return "ok";
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
        EXPECT_EQ(run(), (Totals{.files = 2, .unique = 2, .attempted = 0, .aborted = true}));
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
    useManifest(R"([{"nsfw":false,"md5":")" + md5OfA + R"("}])");
    const auto record = verdict();
    EXPECT_EQ(abortStatus, 124);
    EXPECT_GT(record.ms, 50);
    CorpusRecord expected{
        .event = "result", .i = 0, .path = "a.wsz", .name = "a", .md5 = md5OfA, .size = 1};
    expected.status = "timeout";
    expected.error = "no result after 0.05 s";
    expected.footprintMiB = 7;
    expected.nsfw = false;
    EXPECT_EQ(stripped().back(), expected);

    onSkin = [](const fs::path&) { return "ok"; };
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
    onSkin = [](const fs::path&) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50)); // ten looks
        return "ok";
    };
    EXPECT_EQ(run()->attempted, 2);
    EXPECT_EQ(abortStatus, 0);
}

TEST_F(CorpusWatch, EndsTheProcessWithoutAVerdictThatCantBeWritten)
{
    config.timeout = 0.05;
    onSkin = [this, wait = onSkin](const fs::path& file) {
        fs::remove(results);
        return wait(file);
    };
    EXPECT_TRUE(run()->aborted);
    EXPECT_EQ(abortStatus, 2);
    EXPECT_EQ(notes,
              Names{results.string() + ": deleted or renamed while the run was writing to it"});
}

TEST_F(CorpusRun, DoesNotCountTheTimeForWhichTheProcessIsStopped)
{
    add("a.wsz", "a");
    config.timeout = 0.4;
    config.pollInterval = 0.04;
    onSkin = [](const fs::path&) {
        ::raise(SIGSTOP);
        std::this_thread::sleep_for(std::chrono::milliseconds(100)); // two looks
        return "ok";
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
    const auto current = [] { return ProcessFootprint::mebibytes().current; };
    // In small blocks, the last of which is returned, so that the others stay behind it.
    const auto takeAndFree = [] { return std::vector(1280, ByteBuffer(1 << 16, 1)).back(); };
    const auto before = current();
    const auto probe = takeAndFree();
    Process::releaseFreeMemory();
    if (current() > before + 20)
        GTEST_SKIP() << "a sanitizer keeps what is freed";

    add("a.wsz", "a");
    add("b.wsz", "b");
    config.maxMemoryMiB = before + 100;
    hooks.footprint = ProcessFootprint::mebibytes;
    std::vector<ByteBuffer> kept;
    std::vector<std::int64_t> footprints;
    onSkin = [&](const fs::path&) {
        footprints.push_back(current());
        kept.push_back(takeAndFree());
        return "ok";
    };
    EXPECT_TRUE(run());
    EXPECT_GT(ProcessFootprint::mebibytes().lifetimeMax, footprints.at(0) + 70);
    EXPECT_LT(footprints.at(1), footprints.at(0) + 20);
}

TEST(CorpusRunner, ProcessesSkinsOfAllKinds)
{
    const support::TemporaryFolder folder;
    const auto whole = SkinBuilder().allSheets();
    const struct {
        ByteBuffer content;
        CorpusOutcome expected;
    } rows[] = {
        {whole.zip(),
         {.entries = 16,
          .status = "ok",
          .mainWindowComplete = true,
          .fallbacks = whole.parse()->fallbacks,
          .renderMs = 0}},
        {SkinBuilder(whole).without("main.bmp").zip(),
         {.entries = 15,
          .status = "partial",
          .mainWindowComplete = false,
          .warnings = {"Missing main.bmp"},
          .fallbacks = SkinBuilder(whole).without("main.bmp").parse()->fallbacks,
          .renderMs = 0}},
        {SkinBuilder(whole).text("skin.xml", "").zip(), {.entries = 17, .status = "modern"}},
        {SkinBuilder().text("a.txt", "").zip(),
         {.entries = 1, .status = "failed", .error = "No classic skin bitmaps found"}},
        {bytes("no archive"),
         {.status = "failed", .error = "Unreadable archive: Not a zip archive"}},
    };
    for (const auto& [content, expected] : rows) {
        auto outcome = CorpusRunner::processSkin(folder.write("a.wsz", content));
        EXPECT_TRUE(outcome.parseMs > 0 && outcome.renderMs != 0.0) << expected.status;
        outcome.parseMs = 0;
        outcome.renderMs = outcome.renderMs ? std::optional(0.0) : std::nullopt;
        EXPECT_EQ(outcome, expected) << expected.status;
    }
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
