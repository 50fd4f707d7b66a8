#include "SkinKit/Tooling/Corpus/CorpusRecord.h"
#include "tests/support/Program.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>
#include <map>
#include <sstream>

// Every system call of the programs failing in turn.
namespace {

namespace fs = std::filesystem;
using support::ByteBuffer;
using support::Outcome;
using Words = std::vector<std::string>;

// Passes for a gallery's page, which replaces no other.
const ByteBuffer oldContent =
    support::bytes(R"(<meta name="generator" content="skintool gallery">what stood here before)");

// How a call fails.
struct Failure {
    std::string how; // an error's number, or "short"
    bool goesOn = false;

    // What no program may be troubled by.
    bool isHarmless() const { return how == "short" || how == std::to_string(EINTR); }
};

const std::string inputOutput = std::to_string(EIO);
const std::string interrupted = std::to_string(EINTR);

using Failures = std::vector<Failure>;
const Failures allFailures{
    {inputOutput},
    {inputOutput, true},
    {std::to_string(ENOSPC)},
    {interrupted},
    {"short"}
};
// For programs that make many calls, most of them time and again.
const Failures fewFailures{{inputOutput}, {interrupted}};

// The regular files below a folder, by their paths in it.
std::map<std::string, ByteBuffer> filesOf(const fs::path& folder)
{
    std::map<std::string, ByteBuffer> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files.emplace(fs::relative(entry.path(), folder), support::readFile(entry.path()));
    return files;
}

// A program that works in a folder of its own, run again and again while one call after the other
// fails.
class FailingCalls : public testing::Test {
protected:
    struct Run {
        Outcome outcome;
        unsigned calls = 0;
    };

    Run runWith(unsigned number, const Failure& failure) const
    {
        const auto counter = counters_.write("counter", ByteBuffer(sizeof(unsigned)));
        fs::resize_file(counter, 0);
        fs::resize_file(counter, sizeof(unsigned));
        support::Setting setting{.seconds = 20};
        setting.variables = {
            std::string("LD_PRELOAD=") + FAILING_CALLS, "FAILING_COUNTER=" + counter.string(),
            "FAILING_CALL=" + std::to_string(number), "FAILING_HOW=" + failure.how};
        if (failure.goesOn)
            setting.variables.push_back("FAILING_ON=1");
        setting.variables.insert(setting.variables.end(), variables_.begin(), variables_.end());
        Run run{support::run(program_, arguments_, setting)};
        const auto bytes = support::readFile(counter);
        std::memcpy(&run.calls, bytes.data(), sizeof(run.calls));
        return run;
    }

    // Calls `judge` after each run in which the call of the next number failed. Each run starts
    // from what `prepare` makes.
    void failEachCall(const Failures& failures, const std::function<void()>& prepare,
                      const std::function<void(const Outcome&, const Failure&)>& judge) const
    {
        for (const Failure& failure : failures)
            for (unsigned number = 1;; ++number) {
                SCOPED_TRACE("call " + std::to_string(number) + ": " + failure.how +
                             (failure.goesOn ? " from then on" : ""));
                prepare();
                const auto [outcome, calls] = runWith(number, failure);
                if (calls < number) {
                    ASSERT_GT(number, 5U) << "hardly a call was seen";
                    break;
                }
                ASSERT_LT(outcome.status, 3) << outcome.err;
                judge(outcome, failure);
                if (HasFatalFailure())
                    return;
            }
    }

    // For a program that writes files once: after each run each of them is whole, or as it was
    // before. `isSaid` tells of a page that came out otherwise whether it says why.
    void expectFilesWholeOrAsBefore(
        const Failures& failures = allFailures,
        bool (*isSaid)(const ByteBuffer&) = [](const ByteBuffer&) { return false; }) const
    {
        const auto clean = support::run(program_, arguments_, {.variables = variables_});
        ASSERT_LT(clean.status, 2) << clean.err;
        const auto whole = filesOf(output());

        for (const bool isThere : {false, true}) {
            SCOPED_TRACE(isThere ? "over old files" : "without old files");
            const auto prepare = [&] {
                fs::remove_all(output());
                fs::create_directory(output());
                for (const auto& [file, content] : whole)
                    if (isThere && fs::path(file).parent_path().empty())
                        folder_.write("out/" + file, oldContent);
            };
            failEachCall(isThere ? fewFailures : failures, prepare,
                         [&](const Outcome& outcome, const Failure& failure) {
                             auto files = filesOf(output());
                             bool isAsItShould = outcome.status == clean.status;
                             bool isExplained = false;
                             for (const auto& [file, content] : files) {
                                 const bool isTemporary =
                                     fs::path(file).filename().string().starts_with('.');
                                 EXPECT_TRUE(!isTemporary || failure.goesOn) << file << " was left";
                                 if (isTemporary)
                                     continue;
                                 const auto found = whole.find(file);
                                 ASSERT_NE(found, whole.end()) << file;
                                 if (isSaid(content)) {
                                     isExplained = true;
                                     continue;
                                 }
                                 EXPECT_TRUE(content == found->second ||
                                             (isThere && content == oldContent) ||
                                             (mayBeEmpty_ && content.empty()))
                                     << file << " is damaged";
                             }
                             if (isAsItShould && !isExplained) {
                                 EXPECT_EQ(files, whole) << "and status " << outcome.status;
                                 EXPECT_EQ(outcome.out, clean.out);
                             }
                             if (!isAsItShould)
                                 expectClearError(outcome, failure);
                             EXPECT_TRUE(isAsItShould || !failure.isHarmless()) << outcome.err;
                         });
        }
    }

    void expectClearError(const Outcome& outcome, const Failure& failure) const
    {
        EXPECT_EQ(outcome.status, 2);
        if (failure.goesOn && outcome.err.empty())
            return; // standard error failed, too
        // A page that tells of the first failure may fail to be written, too.
        const auto lines = std::ranges::count(outcome.err, '\n');
        EXPECT_TRUE(lines == 1 || (lines == 2 && failure.goesOn)) << outcome.err;
        EXPECT_TRUE(outcome.err.starts_with("skintool: ") ||
                    outcome.err.starts_with("velmar-thumbnailer: "))
            << outcome.err;
        EXPECT_TRUE(outcome.err.contains(folder_.path().string())) << outcome.err;
    }

    fs::path output() const { return folder_ / "out"; }
    std::string path(std::string_view name) const { return folder_ / name; }

    void skinAt(std::string_view name, std::string_view sample) const
    {
        folder_.write(name, support::readFile(fs::path(SKINKIT_SAMPLES) / sample));
    }

    support::TemporaryFolder folder_;
    support::TemporaryFolder counters_;
    fs::path program_ = SHARED_SKINTOOL;
    Words arguments_;
    Words variables_;         // of the environment
    bool mayBeEmpty_ = false; // a file that was not written to its end

    void SetUp() override
    {
        fs::create_directory(output());
        skinAt("skin.wsz", "arcade.wsz");
    }
};

bool saysWhy(const ByteBuffer& content)
{
    const auto text = SkinKit::asText(content);
    return text.contains(std::strerror(EIO)) || text.contains(std::strerror(ENOSPC));
}

// A report or a summary without the log that could not be read.
bool countsNoCrashLogs(const ByteBuffer& content)
{
    const auto text = SkinKit::asText(content);
    return text.contains("(0 crash logs)") || text.contains("\"crashLogs\": []");
}

}

TEST_F(FailingCalls, LeaveNoDamagedPicture)
{
    arguments_ = {"--png", path("out/a.png"), path("skin.wsz")};
    expectFilesWholeOrAsBefore();
}

TEST_F(FailingCalls, LeaveNoDamagedPictureOfAFolder)
{
    fs::create_directory(folder_ / "skin");
    for (const auto& [name, color] : {std::pair("main.bmp", 10), std::pair("cbuttons.bmp", 90)})
        folder_.write(
            std::string("skin/") + name,
            support::encodeBMP(
                support::solidImage({275, 116}, {9, 9, static_cast<std::uint8_t>(color)}), 24));
    arguments_ = {"--png", path("out/a.png"), path("skin")};
    expectFilesWholeOrAsBefore();
}

TEST_F(FailingCalls, LeaveNoDamagedPictureOfALargeArchive)
{
    // Larger than what is read in one go.
    auto archive = support::readFile(folder_ / "skin.wsz");
    archive.insert(archive.begin(), 5 << 20, 0);
    folder_.write("skin.wsz", archive);
    arguments_ = {"--png", path("out/a.png"), path("skin.wsz")};
    expectFilesWholeOrAsBefore();
}

TEST_F(FailingCalls, LeaveNoDamagedPictureNorComparison)
{
    arguments_ = {"--png", path("refs/skin.png"), "--state", "idle", path("skin.wsz")};
    fs::create_directory(folder_ / "refs");
    ASSERT_EQ(support::run(SKINTOOL_PROGRAM, arguments_).status, 0);
    arguments_ = {"--png", path("out/a.png"), "--compare", path("refs"), path("skin.wsz")};
    expectFilesWholeOrAsBefore();
}

TEST_F(FailingCalls, LeaveNoDamagedWindows)
{
    arguments_ = {"windows", path("skin.wsz"), "--out", path("out")};
    expectFilesWholeOrAsBefore(fewFailures);
}

TEST_F(FailingCalls, LeaveNoDamagedPage)
{
    arguments_ = {"preview", path("skin.wsz"), "--out", path("out/page.html")};
    expectFilesWholeOrAsBefore(allFailures, saysWhy);
}

TEST_F(FailingCalls, LeaveNoDamagedGallery)
{
    fs::create_directory(folder_ / "skins");
    skinAt("skins/a.wsz", "aurora.wsz");
    skinAt("skins/b.wsz", "lagoon.wsz");
    arguments_ = {"gallery", path("skins"), "--out", path("out")};
    expectFilesWholeOrAsBefore(fewFailures, saysWhy);
}

TEST_F(FailingCalls, LeaveNoDamagedThumbnail)
{
    program_ = SHARED_THUMBNAILER;
    variables_ = {support::variableForTheShutIn};
    mayBeEmpty_ = true;
    arguments_ = {path("skin.wsz"), path("out/a.png")};
    expectFilesWholeOrAsBefore();
}

// The records of a run's results, each of which has to be whole.
class Results {
public:
    explicit Results(const fs::path& file)
    {
        std::istringstream lines(fs::exists(file)
                                     ? std::string(SkinKit::asText(support::readFile(file)))
                                     : std::string());
        for (std::string line; std::getline(lines, line);) {
            const auto record = SkinKit::CorpusRecord::parse(line);
            EXPECT_TRUE(record) << line;
            if (record && record->event == "result")
                ++statuses_[record->status.value_or("")];
        }
    }

    int with(const std::string& status) const
    {
        const auto found = statuses_.find(status);
        return found == statuses_.end() ? 0 : found->second;
    }

private:
    std::map<std::string, int> statuses_;
};

TEST_F(FailingCalls, LoseNothingOfACorpusRunNorCountASkinAsCrashed)
{
    fs::create_directory(folder_ / "skins");
    skinAt("skins/a.wsz", "aurora.wsz");
    skinAt("skins/b.wsz", "lagoon.wsz");
    arguments_ = {"corpus", path("skins"), "--out", path("out"), "--resume"};
    const auto prepare = [this] {
        fs::remove_all(output());
        fs::create_directory(output());
    };
    const Failures failures{
        {inputOutput},
        {inputOutput, true},
        {interrupted}
    };
    failEachCall(failures, prepare, [this](const Outcome& outcome, const Failure& failure) {
        EXPECT_TRUE(outcome.status == 0 || (outcome.status == 2 && !failure.isHarmless()))
            << outcome.err;
        EXPECT_TRUE(outcome.status == 0 || failure.goesOn ||
                    outcome.err.contains("skintool: " + folder_.path().string()))
            << outcome.err;
        Results(output() / "results.jsonl"); // nothing but whole lines

        // The run goes on where the failure ended it, and answers for each skin once.
        const auto resumed = support::run(SKINTOOL_PROGRAM, arguments_);
        ASSERT_EQ(resumed.status, 0) << resumed.err;
        const Results results(output() / "results.jsonl");
        const int crashed = results.with("crashed");
        const int loaded = results.with("ok") + results.with("partial");
        EXPECT_EQ(loaded + results.with("failed") + crashed, 2);
        // From a disk that is gone nothing can be taken back.
        EXPECT_TRUE(crashed == 0 || failure.goesOn);
        EXPECT_TRUE(loaded == 2 || !failure.isHarmless());
        for (const auto& [file, content] : filesOf(output()))
            EXPECT_TRUE(failure.goesOn || !file.starts_with('.')) << file << " was left";
    });
}

TEST_F(FailingCalls, LeaveNoDamagedReport)
{
    fs::create_directory(folder_ / "skins");
    fs::create_directory(folder_ / "logs");
    skinAt("skins/a.wsz", "aurora.wsz");
    folder_.write("logs/a.log", support::bytes("free(): invalid pointer\n"));
    folder_.write("machine.json", support::bytes("{\"cores\": 2}"));
    arguments_ = {"corpus", path("skins"), "--out", path("run")};
    ASSERT_EQ(support::run(SKINTOOL_PROGRAM, arguments_).status, 0);
    arguments_ = {"corpus-report", path("run/results.jsonl"),
                  "--markdown",    path("out/report.md"),
                  "--json",        path("out/summary.json"),
                  "--env",         path("machine.json"),
                  "--crashes",     path("logs")};
    expectFilesWholeOrAsBefore(allFailures, countsNoCrashLogs);
}
