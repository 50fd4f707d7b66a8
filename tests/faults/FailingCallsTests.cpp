#include "SkinKit/Tooling/Corpus/CorpusRecord.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/Program.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <map>

// Every system call of the programs failing in turn.
namespace {

namespace fs = std::filesystem;
using support::ByteBuffer;
using support::Outcome;
using Files = std::map<std::string, ByteBuffer>;

// How a call fails.
struct Failure {
    std::string how; // an error's number, or "short"
    bool goesOn = false;

    // Whether no program may notice it.
    bool isHarmless() const { return how == "short" || how == std::to_string(EINTR); }
};

const Failure inputOutput{std::to_string(EIO)};
const Failure diskIsGone{std::to_string(EIO), true};
const Failure interrupted{std::to_string(EINTR)};
const std::vector<Failure> allFailures{
    inputOutput, diskIsGone, {std::to_string(ENOSPC)}, interrupted, {"short"}};
// For programs that make many calls, most of them repeatedly.
const std::vector<Failure> fewFailures{inputOutput, diskIsGone, interrupted};

// A program that writes files, and where those may differ from what it writes otherwise.
struct Command {
    std::string name;
    const char* line;
    const std::vector<Failure>& failures = allFailures;
    // Text of a file that was written without an input that could not be read, and says so.
    std::vector<std::string> admissions;
    const char* program = SHARED_SKINTOOL;
    bool mayLeaveEmpty = false;

    friend std::ostream& operator<<(std::ostream& stream, const Command& command)
    {
        return stream << command.line;
    }
};

// What a page passes for that was there before, so that a gallery replaces it.
const ByteBuffer oldContent =
    support::bytes(R"(<meta name="generator" content="skintool gallery">)");

class FailingCalls : public testing::Test {
protected:
    FailingCalls()
    {
        fs::current_path(folder_.path());
        for (const auto* name : {"out", "in/skin", "in/skins", "in/logs", "in/refs"})
            fs::create_directories(name);
        const auto copySample = [](const std::string& name, const char* to) {
            fs::copy_file(fs::path(SKINKIT_SAMPLES) / name, to);
        };
        copySample("arcade.wsz", "in/skin.wsz");
        copySample("aurora.wsz", "in/skins/a.wsz");
        copySample("lagoon.wsz", "in/skins/b.wsz");
        // Larger than what is read in one go.
        auto large = support::readFile("in/skin.wsz");
        large.insert(large.begin(), 5 << 20, 0);
        folder_.write("in/large.wsz", large);
        for (const auto* name : {"in/skin/main.bmp", "in/skin/cbuttons.bmp"})
            folder_.write(name, support::encodeBMP(support::solidImage({275, 116}, {1, 2, 3}), 24));
        folder_.write("in/logs/a.log", support::bytes("free(): invalid pointer\n"));
        folder_.write("in/machine.json", support::bytes("{\"cores\": 2}"));
        folder_.write("in/results.jsonl",
                      support::bytes(R"({"event":"result","path":"a","status":"ok"})"));
        EXPECT_EQ(run("--png in/refs/skin.png --state idle in/skin.wsz"), Outcome());
    }
    ~FailingCalls() override { fs::current_path(before_); }

    // Runs a command while nothing fails.
    static Outcome run(const std::string& line, const char* program = SKINTOOL_PROGRAM)
    {
        return support::run(program, support::words(line),
                            {.variables = {support::variableForTheShutIn}});
    }

    // The regular files of the output folder, by their paths in it.
    static Files files()
    {
        Files files;
        for (const auto& entry : fs::recursive_directory_iterator("out"))
            if (entry.is_regular_file())
                files.emplace(fs::relative(entry.path(), "out"), support::readFile(entry.path()));
        return files;
    }

    static void emptyOutput()
    {
        fs::remove_all("out");
        fs::create_directory("out");
    }

    // Runs the command again and again, from what `prepare` makes, while the call of the next
    // number fails, and calls `judge` after each run.
    void failEachCall(const Command& command, const auto& prepare, const auto& judge) const
    {
        const auto counter = counters_ / "counter";
        for (const Failure& failure : command.failures)
            for (unsigned number = 1;; ++number) {
                SCOPED_TRACE("call " + std::to_string(number) + ": " + failure.how +
                             (failure.goesOn ? " from then on" : ""));
                prepare();
                counters_.write("counter", ByteBuffer(sizeof(unsigned), 0));
                support::Setting setting{.seconds = 20};
                setting.variables = {
                    std::string("LD_PRELOAD=") + FAILING_CALLS,
                    "FAILING_COUNTER=" + counter.string(), "FAILING_HOW=" + failure.how,
                    "FAILING_CALL=" + std::to_string(number), support::variableForTheShutIn};
                if (failure.goesOn)
                    setting.variables.emplace_back("FAILING_ON=1");
                const auto outcome =
                    support::run(command.program, support::words(command.line), setting);
                unsigned calls = 0;
                std::memcpy(&calls, support::readFile(counter).data(), sizeof(calls));
                if (calls < number) {
                    ASSERT_GT(number, 5U) << "hardly a call was seen";
                    break;
                }
                judge(outcome, failure);
                if (HasFatalFailure())
                    return;
            }
    }

    // One line that names the program and the file, unless standard error fails too. A page about
    // the first failure may fail as well, and is the second line.
    static void expectClearError(const Outcome& outcome, const Failure& failure)
    {
        EXPECT_EQ(outcome.status, 2) << outcome.err;
        EXPECT_FALSE(failure.isHarmless()) << outcome.err;
        if (failure.goesOn && outcome.err.empty())
            return;
        const auto lines = std::ranges::count(outcome.err, '\n');
        EXPECT_TRUE(lines == 1 || (lines == 2 && failure.goesOn)) << outcome.err;
        EXPECT_TRUE(outcome.err.starts_with("skintool: ") ||
                    outcome.err.starts_with("velmar-thumbnailer: "))
            << outcome.err;
        EXPECT_TRUE(namesAFile(outcome)) << outcome.err;
    }
    static bool namesAFile(const Outcome& outcome)
    {
        return outcome.err.contains(": in/") || outcome.err.contains(": out");
    }

    const fs::path before_ = fs::current_path();
    const support::TemporaryFolder folder_;
    const support::TemporaryFolder counters_;
};

bool containsAnyOf(const ByteBuffer& content, const std::vector<std::string>& texts)
{
    return std::ranges::any_of(
        texts, [&](const auto& text) { return SkinKit::asText(content).contains(text); });
}

}

class FailingCallsOf : public FailingCalls, public testing::WithParamInterface<Command> {};

TEST_P(FailingCallsOf, LeaveEachFileWholeOrAsBefore)
{
    const Command& command = GetParam();
    const auto clean = run(command.line, command.program);
    ASSERT_LT(clean.status, 2) << clean.err;
    const Files whole = files();
    ASSERT_FALSE(whole.empty());

    const auto prepare = [&] {
        emptyOutput();
        for (const auto& [file, content] : whole)
            if (!file.contains('/'))
                folder_.write("out/" + file, oldContent);
    };
    const auto judge = [&](const Outcome& outcome, const Failure& failure) {
        const Files found = files();
        bool isAdmitted = false;
        for (const auto& [file, content] : found) {
            if (fs::path(file).filename().string().starts_with('.')) {
                EXPECT_TRUE(failure.goesOn) << file << " was left";
                continue;
            }
            ASSERT_TRUE(whole.contains(file)) << file;
            const bool isOtherwise = containsAnyOf(content, command.admissions);
            isAdmitted = isAdmitted || isOtherwise;
            EXPECT_TRUE(content == whole.at(file) || content == oldContent || isOtherwise ||
                        (command.mayLeaveEmpty && content.empty()))
                << file << " is damaged";
        }
        if (outcome.status != clean.status)
            expectClearError(outcome, failure);
        else
            EXPECT_TRUE(isAdmitted || (found == whole && outcome.out == clean.out)) << outcome;
    };
    failEachCall(command, prepare, judge);
}

const std::vector<std::string> reasons{std::strerror(EIO), std::strerror(ENOSPC)};
// clang-format off
INSTANTIATE_TEST_SUITE_P(Commands, FailingCallsOf, testing::Values(
    Command{"Picture",             "--png out/a.png in/skin.wsz"},
    Command{"PictureOfAFolder",    "--png out/a.png in/skin"},
    Command{"PictureOfManyReads",  "--png out/a.png in/large.wsz"},
    Command{"Comparison",          "--png out/a.png --compare in/refs in/skin.wsz"},
    Command{"Windows",             "windows in/skin.wsz --out out", fewFailures},
    Command{"Page",                "preview in/skin.wsz --out out/page.html", allFailures, reasons},
    Command{"Gallery",             "gallery in/skins --out out", fewFailures, reasons},
    // A crash log that can't be read is left out.
    Command{"Report",              "corpus-report in/results.jsonl --markdown out/report.md "
                                   "--json out/summary.json --env in/machine.json "
                                   "--crashes in/logs",
            allFailures, {"(0 crash logs)", "\"crashLogs\": []"}},
    Command{"Thumbnail", "in/skin.wsz out/a.png", allFailures, {}, SHARED_THUMBNAILER, true}),
    [](const auto& row) { return row.param.name; });
// clang-format on

// How many skins a run's results have with each status. Every line has to be whole.
std::map<std::string, int> countStatuses(const fs::path& results)
{
    std::map<std::string, int> counts;
    std::ifstream lines(results);
    for (std::string line; std::getline(lines, line);) {
        const auto record = SkinKit::CorpusRecord::parse(line);
        EXPECT_TRUE(record) << line;
        if (record && record->event == "result")
            ++counts[record->status.value_or("")];
    }
    return counts;
}

TEST_F(FailingCalls, LoseNoSkinOfARunAndCountNoneAsCrashed)
{
    const Command command{"", "corpus in/skins --out out --resume", fewFailures};
    const auto judge = [&](const Outcome& outcome, const Failure& failure) {
        EXPECT_TRUE(outcome.status == 0 || (outcome.status == 2 && !failure.isHarmless()))
            << outcome.err;
        EXPECT_TRUE(outcome.status == 0 || failure.goesOn || namesAFile(outcome)) << outcome.err;
        countStatuses("out/results.jsonl"); // nothing but whole lines

        // The run resumes where the failure ended it, and has one result for each skin.
        const auto resumed = run(command.line);
        ASSERT_EQ(resumed.status, 0) << resumed.err;
        auto results = countStatuses("out/results.jsonl");
        const int loaded = results["ok"] + results["partial"];
        EXPECT_EQ(loaded + results["failed"] + results["crashed"], 2);
        // From a disk that is gone nothing can be taken back.
        EXPECT_TRUE(results["crashed"] == 0 || failure.goesOn);
        EXPECT_TRUE(loaded == 2 || !failure.isHarmless());
        for (const auto& [file, content] : files())
            EXPECT_TRUE(failure.goesOn || !file.starts_with('.')) << file << " was left";
    };
    failEachCall(command, [] { emptyOutput(); }, judge);
}
