#include "SkinKit/Base/JSON.h"
#include "tests/support/Program.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <sstream>

// The programs where memory, space, streams or files are not what they should be.
namespace {

namespace fs = std::filesystem;
using support::ByteBuffer;
using support::Outcome;
using Words = std::vector<std::string>;

class Surroundings : public testing::Test {
protected:
    Surroundings()
    {
        folder_.write("skin.wsz", support::readFile(fs::path(SKINKIT_SAMPLES) / "graphite.wsz"));
    }

    std::string path(std::string_view name) const { return folder_ / name; }

    // Never longer than a minute: what hangs is a failure.
    static Outcome skintool(const Words& arguments, support::Setting setting = {})
    {
        setting.seconds = 60;
        return support::run(SKINTOOL_PROGRAM, arguments, setting);
    }
    static Outcome thumbnailer(const Words& arguments)
    {
        return support::run(THUMBNAILER_PROGRAM, arguments,
                            {.seconds = 60, .variables = {support::variableForTheShutIn}});
    }
    ByteBuffer picture() const
    {
        EXPECT_EQ(skintool({"--png", path("whole.png"), path("skin.wsz")}).status, 0);
        return support::readFile(folder_ / "whole.png");
    }

    support::TemporaryFolder folder_;
};

bool isOneLine(const std::string& err)
{
    return std::ranges::count(err, '\n') == 1 && err.ends_with('\n');
}

// Puts what no program reads as a file into a new folder, each with a name that would pass for a
// skin's, and gives the paths.
Words oddFiles(const fs::path& folder)
{
    fs::create_directory(folder);
    ::mkfifo((folder / "pipe.wsz").c_str(), 0600);
    fs::create_symlink("/dev/zero", folder / "zero.wsz");
    fs::create_symlink("loop.wsz", folder / "loop.wsz");
    return {folder / "pipe.wsz", folder / "zero.wsz", folder / "loop.wsz"};
}

}

TEST_F(Surroundings, EndWithOneLineWhereMemoryRunsOut)
{
    constexpr long mebibyte = 1 << 20;
    const Words drawing{"--png", path("a.png"), "--scale", "20", path("skin.wsz")};
    if (skintool(drawing, {.maxMemoryBytes = 4096 * mebibyte}).status != 0)
        GTEST_SKIP() << "the sanitizers take more address space than any limit leaves";
    fs::remove(path("a.png"));
    int ended = 0;
    for (long limit = 16 * mebibyte; limit < 300 * mebibyte; limit += 19 * mebibyte) {
        const auto outcome = skintool(drawing, {.maxMemoryBytes = limit});
        if (outcome.status == 0)
            break;
        ++ended;
        EXPECT_EQ(outcome.status, 128 + SIGABRT) << limit;
        EXPECT_TRUE(outcome.err.starts_with("SkinKit: no memory") && isOneLine(outcome.err))
            << limit << " " << outcome.err;
        EXPECT_FALSE(fs::exists(path("a.png")));
    }
    EXPECT_GT(ended, 2);

    const auto thumbnail =
        support::run(THUMBNAILER_PROGRAM, {"-s", "4096", path("skin.wsz"), path("b.png")},
                     {.maxMemoryBytes = 48 * mebibyte});
    EXPECT_EQ(
        thumbnail,
        (Outcome{2, "", "velmar-thumbnailer: " + path("skin.wsz") + ": takes too much memory\n"}));
    EXPECT_EQ(support::readFile(path("b.png")), ByteBuffer());
}

TEST_F(Surroundings, WriteNoMessageIntoFilesWhereStreamsAreClosed)
{
    const auto whole = picture();
    for (const int stream : {0, 1, 2}) {
        const support::Setting setting{.closedStreams = {stream}};
        fs::remove(path("a.png"));
        fs::remove_all(path("run"));
        fs::create_directories(path("skins"));
        folder_.write("skins/a.wsz", support::readFile(path("skin.wsz")));
        // Notes go to standard error, counts to standard output.
        skintool({"-v", "--png", path("a.png"), "--compare", folder_.path(), path("skin.wsz")},
                 setting);
        EXPECT_EQ(support::readFile(path("a.png")), whole);
        skintool({"corpus", path("skins"), "--out", path("run")}, setting);
        std::istringstream results(
            std::string(SkinKit::asText(support::readFile(path("run/results.jsonl")))));
        int lines = 0;
        for (std::string line; std::getline(results, line); ++lines)
            EXPECT_TRUE(SkinKit::JSON::parse(line)) << line;
        EXPECT_EQ(lines, 3);
    }
    EXPECT_EQ(skintool({"info", path("skin.wsz")}, {.closedStreams = {1}}),
              (Outcome{2, "", "skintool: standard output: Bad file descriptor\n"}));
}

TEST_F(Surroundings, OpenNothingButFilesAndFolders)
{
    for (const auto& input : oddFiles(folder_ / "odd")) {
        for (const Words& arguments : {
                 Words{input},
                 {"gallery", input, "--out", path("gallery")},
                 {"corpus", input, "--out", path("run")},
                 {"corpus", path("odd"), "--out", path("run"), "--manifest", input},
                 {"corpus-report", input, "--markdown", path("a.md"), "--json", path("a.json")},
        }) {
            const auto outcome = skintool(arguments);
            EXPECT_EQ(outcome.status, 2) << input << " " << arguments.front();
            EXPECT_TRUE(isOneLine(outcome.err) && outcome.err.contains(input)) << outcome.err;
        }
        EXPECT_EQ(thumbnailer({input, path("a.png")}).status, 2) << input;
    }
}

TEST_F(Surroundings, SkipWhatIsNoFileInsideFolders)
{
    oddFiles(folder_ / "skins");
    fs::create_symlink("/dev/zero", folder_ / "skins/text.bmp");
    ::mkfifo((folder_ / "skins/main.bmp").c_str(), 0600);
    fs::create_directory_symlink(".", folder_ / "skins/again");
    folder_.write("skins/cbuttons.bmp",
                  support::encodeBMP(support::solidImage({136, 36}, {1, 2, 3}), 24));
    EXPECT_EQ(skintool({"--png", path("a.png"), path("skins")}).status, 0);
    EXPECT_EQ(thumbnailer({path("skins"), path("b.png")}).status, 0);

    folder_.write("skins/a.wsz", support::readFile(path("skin.wsz")));
    const auto run = skintool({"corpus", path("skins"), "--out", path("run")});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(run.out.contains("files:     1\n")) << run.out;
    EXPECT_EQ(skintool({"gallery", path("skins"), "--out", path("gallery")}).status, 0);
}

TEST_F(Surroundings, KeepWhatThereIsWhereADiskIsFull)
{
    fs::create_directory(folder_ / "disk");
    constexpr const char* script = R"sh(
        unshare --mount true 2>/dev/null || exit 77
        unshare --mount bash -s "$@" <<'END'
            mount -t tmpfs -o size=64k tmpfs "$2/disk" 2>/dev/null || exit 77
            cd "$2/disk"
            echo old >a.png
            head -c 56k /dev/zero >fill
            "$1" --png a.png --scale 9 "$2/skin.wsz" && exit 1
            "$1" --png b.png --scale 9 "$2/skin.wsz" && exit 2
            "$1" windows "$2/skin.wsz" --scale 4 --out . && exit 3
            head -c 200k /dev/zero >more 2>/dev/null
            "$1" corpus "$2" --out run && exit 4
            [ "$(cat a.png)" = old ] && ! ls -A | grep -q '^[.]skinkit' && [ ! -e b.png ]
END)sh";
    const auto outcome = support::run(
        "/bin/bash", {"-c", script, "script", SKINTOOL_PROGRAM, folder_.path()}, {.seconds = 120});
    if (outcome.status == 77)
        GTEST_SKIP() << "no file system of our own to fill";
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    std::istringstream lines(outcome.err);
    for (std::string line; std::getline(lines, line);)
        EXPECT_TRUE(line.starts_with("skintool: ") && line.ends_with("No space left on device"))
            << line;
}

TEST_F(Surroundings, LeaveAWholePictureOrTheOldOneWhenKilled)
{
    const Words arguments{"--png", path("a.png"), "--scale", "4", path("skin.wsz")};
    const auto old = picture();
    ASSERT_EQ(skintool(arguments).status, 0);
    const auto whole = support::readFile(path("a.png"));
    int killed = 0;
    int done = 0;
    for (int tries = 0; tries < 300 && (killed < 30 || done < 3); ++tries) {
        folder_.write("a.png", old);
        const auto life = std::chrono::microseconds(400 * (tries % 50));
        const bool ended = support::runAndKill(SKINTOOL_PROGRAM, arguments, life).status == 0;
        ++(ended ? done : killed);
        const auto content = support::readFile(path("a.png"));
        EXPECT_TRUE(content == whole || (!ended && content == old)) << life.count();
    }
    EXPECT_GE(killed, 30);
}
