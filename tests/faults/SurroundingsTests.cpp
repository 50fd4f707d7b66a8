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

// Runs in a new folder that holds a skin and the image of it.
class Surroundings : public testing::Test {
protected:
    Surroundings()
    {
        fs::current_path(folder_.path());
        folder_.write("skin.wsz", support::readFile(fs::path(SKINKIT_SAMPLES) / "graphite.wsz"));
        EXPECT_EQ(skintool("--png whole.png skin.wsz").status, 0);
    }
    ~Surroundings() override { fs::current_path(before_); }

    // Never longer than a minute: what hangs is a failure.
    static Outcome skintool(const std::string& line, support::Setting setting = {})
    {
        setting.seconds = 60;
        return support::run(SKINTOOL_PROGRAM, support::words(line), setting);
    }
    static Outcome thumbnailer(const std::string& line, long maxMemoryBytes = 0)
    {
        return support::run(THUMBNAILER_PROGRAM, support::words(line),
                            {.maxMemoryBytes = maxMemoryBytes,
                             .seconds = 60,
                             .variables = {support::variableForTheShutIn}});
    }

    const fs::path before_ = fs::current_path();
    const support::TemporaryFolder folder_;
};

bool isOneLine(const std::string& err)
{
    return std::ranges::count(err, '\n') == 1 && err.ends_with('\n');
}

}

TEST_F(Surroundings, EndWithOneLineWhereMemoryRunsOut)
{
    constexpr long mebibyte = 1 << 20;
    const std::string drawing = "--png a.png --scale 20 skin.wsz";
    if (skintool(drawing, {.maxMemoryBytes = 4096 * mebibyte}).status != 0)
        GTEST_SKIP() << "the sanitizers take more address space than any limit leaves";
    fs::remove("a.png");
    int ended = 0;
    for (long limit = 16 * mebibyte; limit < 300 * mebibyte; limit += 19 * mebibyte) {
        const auto outcome = skintool(drawing, {.maxMemoryBytes = limit});
        if (outcome.status == 0)
            break;
        ++ended;
        EXPECT_EQ(outcome.status, 128 + SIGABRT) << limit;
        EXPECT_TRUE(outcome.err.starts_with("SkinKit: no memory") && isOneLine(outcome.err))
            << limit << " " << outcome.err;
        EXPECT_FALSE(fs::exists("a.png"));
    }
    EXPECT_GT(ended, 2);
    EXPECT_EQ(thumbnailer("-s 4096 skin.wsz b.png", 48 * mebibyte),
              (Outcome{2, "", "velmar-thumbnailer: skin.wsz: takes too much memory\n"}));
    EXPECT_EQ(support::readFile("b.png"), ByteBuffer());
}

TEST_F(Surroundings, WriteNoMessageIntoFilesWhereStreamsAreClosed)
{
    fs::create_directory("skins");
    fs::copy_file("skin.wsz", "skins/a.wsz");
    for (const int stream : {0, 1, 2}) {
        const support::Setting setting{.closedStreams = {stream}};
        fs::remove("a.png");
        fs::remove_all("run");
        // Notes go to standard error, counts to standard output.
        skintool("-v --png a.png --compare . skin.wsz", setting);
        EXPECT_EQ(support::readFile("a.png"), support::readFile("whole.png"));
        skintool("corpus skins --out run", setting);
        std::istringstream results(
            std::string(SkinKit::asText(support::readFile("run/results.jsonl"))));
        int lines = 0;
        for (std::string line; std::getline(results, line); ++lines)
            EXPECT_TRUE(SkinKit::JSON::parse(line)) << line;
        EXPECT_EQ(lines, 3);
    }
    EXPECT_EQ(skintool("info skin.wsz", {.closedStreams = {1}}),
              (Outcome{2, "", "skintool: standard output: Bad file descriptor\n"}));
}

TEST_F(Surroundings, OpenNothingButFilesAndFolders)
{
    // Files that no program can read, each with a name that would pass for a skin's or a sheet's.
    fs::create_directory("skins");
    for (const auto* pipe : {"skins/pipe.wsz", "skins/main.bmp"})
        ::mkfifo(pipe, 0600);
    for (const auto* link : {"skins/zero.wsz", "skins/text.bmp"})
        fs::create_symlink("/dev/zero", link);
    fs::create_symlink("loop.wsz", "skins/loop.wsz");
    for (const std::string input : {"skins/pipe.wsz", "skins/zero.wsz", "skins/loop.wsz"}) {
        for (const std::string& line :
             {input, "gallery --out gallery " + input, "corpus --out run " + input,
              "corpus skins --out run --manifest " + input,
              "corpus-report --markdown a.md --json a.json " + input}) {
            const auto outcome = skintool(line);
            EXPECT_EQ(outcome.status, 2) << line;
            EXPECT_TRUE(isOneLine(outcome.err) && outcome.err.contains(input)) << outcome.err;
        }
        EXPECT_EQ(thumbnailer(input + " a.png").status, 2) << input;
    }

    // Inside a folder they are skipped.
    fs::create_directory_symlink(".", "skins/again");
    fs::copy_file("skin.wsz", "skins/a.wsz");
    folder_.write("skins/cbuttons.bmp",
                  support::encodeBMP(support::solidImage({136, 36}, {1, 2, 3}), 24));
    EXPECT_EQ(skintool("--png a.png skins").status, 0);
    EXPECT_EQ(thumbnailer("skins b.png").status, 0);
    EXPECT_EQ(skintool("gallery skins --out gallery").status, 0);
    const auto run = skintool("corpus skins --out run");
    EXPECT_TRUE(run.status == 0 && run.out.contains("files:     1\n")) << run;
}

TEST_F(Surroundings, KeepWhatThereIsWhereADiskIsFull)
{
    fs::create_directory("disk");
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
    const std::string drawing = "--png a.png --scale 4 skin.wsz";
    ASSERT_EQ(skintool(drawing).status, 0);
    const auto whole = support::readFile("a.png");
    const auto old = support::readFile("whole.png");
    int killed = 0;
    int done = 0;
    for (int tries = 0; tries < 300 && (killed < 30 || done < 3); ++tries) {
        folder_.write("a.png", old);
        const auto life = std::chrono::microseconds(400 * (tries % 50));
        const auto outcome = skintool(drawing, {.life = life});
        const bool ended = outcome.status == 0;
        ++(ended ? done : killed);
        const auto content = support::readFile("a.png");
        EXPECT_TRUE(content == whole || (!ended && content == old)) << life.count();
    }
    EXPECT_GE(killed, 30);
}
