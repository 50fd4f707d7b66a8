#include "SkinKit/Base/JSON.h"
#include "tests/support/Program.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <sstream>

// The programs where memory, room, streams or files are not what they should be.
namespace {

namespace fs = std::filesystem;
using support::ByteBuffer;
using support::Outcome;
using Words = std::vector<std::string>;

constexpr int aborted = 128 + SIGABRT;
constexpr int brokenPipe = 128 + SIGPIPE;
constexpr int skipped = 77;

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
    // A script for bash, whose arguments it finds in $1 and so on.
    static Outcome script(const std::string& text, Words arguments)
    {
        arguments.insert(arguments.begin(), {"-c", text, "script"});
        return support::run("/bin/bash", arguments, {.seconds = 120});
    }

    ByteBuffer picture() const
    {
        EXPECT_EQ(skintool({"--png", path("whole.png"), path("skin.wsz")}).status, 0);
        return support::readFile(folder_ / "whole.png");
    }

    support::TemporaryFolder folder_;
};

bool hasLineAtATime(const std::string& err)
{
    return std::ranges::count(err, '\n') == 1 && err.ends_with('\n');
}

// What no program reads as a file: places, each with a name that would pass for a skin's.
class NoFiles {
public:
    explicit NoFiles(const fs::path& folder) : folder_(folder)
    {
        fs::create_directory(folder);
        ::mkfifo((folder / "pipe.wsz").c_str(), 0600);
        fs::create_symlink("/dev/zero", folder / "zero.wsz");
        fs::create_symlink("/dev/null", folder / "null.wsz");
        fs::create_symlink("loop.wsz", folder / "loop.wsz");
        const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const std::string name = folder / "socket.wsz";
        std::memcpy(address.sun_path, name.c_str(),
                    std::min(name.size(), sizeof(address.sun_path) - 1));
        ::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
        ::close(socket);
    }

    std::vector<std::string> paths() const
    {
        std::vector<std::string> paths;
        for (const auto& entry : fs::directory_iterator(folder_))
            paths.push_back(entry.path());
        return paths;
    }

private:
    fs::path folder_;
};

}

TEST_F(Surroundings, EndWithOneLineWhereMemoryRunsOut)
{
    constexpr long mebibyte = 1 << 20;
    const Words drawing{"--png", path("a.png"), "--scale", "20", path("skin.wsz")};
    if (skintool(drawing, {.maxMemoryBytes = 4096 * mebibyte}).status != 0)
        GTEST_SKIP() << "the sanitizers take more address space than any limit leaves";
    fs::remove(path("a.png"));
    int ended = 0;
    int thumbnailsEnded = 0;
    for (long limit = 16 * mebibyte; limit < 300 * mebibyte; limit += 19 * mebibyte) {
        const auto outcome = skintool(drawing, {.maxMemoryBytes = limit});
        if (outcome.status == 0)
            break;
        ++ended;
        EXPECT_EQ(outcome.status, aborted) << limit;
        EXPECT_TRUE(outcome.err.starts_with("SkinKit: no memory") && hasLineAtATime(outcome.err))
            << limit << " " << outcome.err;
        EXPECT_FALSE(fs::exists(path("a.png")));

        const auto thumbnail =
            support::run(THUMBNAILER_PROGRAM, {"-s", "4096", path("skin.wsz"), path("b.png")},
                         {.maxMemoryBytes = limit});
        if (thumbnail.status != 0) {
            EXPECT_EQ(thumbnail.status, 2) << limit;
            EXPECT_EQ(thumbnail.err,
                      "velmar-thumbnailer: " + path("skin.wsz") + ": takes too much memory\n");
            EXPECT_EQ(support::readFile(path("b.png")), ByteBuffer()) << limit;
            ++thumbnailsEnded;
        }
    }
    EXPECT_GT(ended, 2);
    EXPECT_GT(thumbnailsEnded, 0);
}

TEST_F(Surroundings, WriteNoTalkIntoFilesWhereStreamsAreClosed)
{
    const auto whole = picture();
    for (const auto& closed : {
             std::vector{0},
             {1},
             {2},
             {0, 1, 2}
    }) {
        const support::Setting setting{.closedStreams = closed};
        fs::remove(path("a.png"));
        // Notes go to standard error, counts to standard output.
        const auto drawn = skintool(
            {"-v", "--png", path("a.png"), "--compare", folder_.path(), path("skin.wsz")}, setting);
        EXPECT_EQ(drawn.status, 2);
        EXPECT_EQ(support::readFile(path("a.png")), whole);

        fs::remove_all(path("run"));
        fs::create_directories(path("skins"));
        folder_.write("skins/a.wsz", support::readFile(path("skin.wsz")));
        skintool({"corpus", path("skins"), "--out", path("run")}, setting);
        std::istringstream results(
            std::string(SkinKit::asText(support::readFile(path("run/results.jsonl")))));
        int lines = 0;
        for (std::string line; std::getline(results, line); ++lines)
            EXPECT_TRUE(SkinKit::JSON::parse(line)) << line;
        EXPECT_EQ(lines, 3);
    }
    const auto info = skintool({"info", path("skin.wsz")}, {.closedStreams = {1}});
    EXPECT_EQ(info.status, 2);
    EXPECT_EQ(info.err, "skintool: standard output: Bad file descriptor\n");
}

TEST_F(Surroundings, EndQuietlyWhereNobodyReadsTheOutput)
{
    const auto outcome =
        script("set -o pipefail; for i in 1 2 3; do \"$1\" info \"$2\" | sleep 0.1; done",
               {SKINTOOL_PROGRAM, path("skin.wsz")});
    EXPECT_TRUE(outcome.status == brokenPipe || outcome.status == 0) << outcome.status;
    EXPECT_EQ(outcome.err, "");
}

TEST_F(Surroundings, OpenNothingButFilesAndFolders)
{
    const NoFiles noFiles(folder_ / "odd");
    for (const auto& input : noFiles.paths())
        for (const Words& arguments : {
                 Words{input},
                 {"info", input},
                 {"--png", path("a.png"), input},
                 {"windows", input, "--out", path("windows")},
                 {"preview", input, "--out", path("a.html")},
                 {"gallery", input, "--out", path("gallery")},
                 {"corpus", input, "--out", path("run")},
                 {"corpus", path("odd"), "--out", path("run"), "--manifest", input},
                 {"corpus-report", input, "--markdown", path("a.md"), "--json", path("a.json")},
        }) {
            const auto outcome = skintool(arguments);
            EXPECT_EQ(outcome.status, 2) << input << " " << arguments.front();
            EXPECT_TRUE(hasLineAtATime(outcome.err) && outcome.err.contains(input)) << outcome.err;
        }
    for (const auto& input : noFiles.paths())
        EXPECT_EQ(thumbnailer({input, path("a.png")}).status, 2) << input;
    EXPECT_FALSE(fs::exists(path("a.png")));
}

TEST_F(Surroundings, PassOverWhatIsNoFileInsideFolders)
{
    const NoFiles noFiles(folder_ / "skins");
    for (const auto& odd : noFiles.paths())
        fs::create_symlink("/dev/zero",
                           folder_ / "skins" / (fs::path(odd).stem().string() + ".bmp"));
    fs::rename(folder_ / "skins/pipe.wsz", folder_ / "skins/main.bmp");
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

TEST_F(Surroundings, SayWhichFileIsNotForThemToRead)
{
    folder_.write("secret.wsz", support::readFile(path("skin.wsz")));
    fs::create_directory(folder_ / "closed");
    fs::create_directory(folder_ / "skin");
    folder_.write("skin/main.bmp", support::readFile(path("skin.wsz")));
    fs::create_directory(folder_ / "run");
    fs::create_directory(folder_ / "logs");
    fs::permissions(path("run"), fs::perms::all);
    folder_.write("run/listing.json", support::bytes("[]"));
    folder_.write("logs/secret.log", {});
    folder_.write("results.jsonl",
                  support::bytes(R"({"event":"result","path":"a","status":"crashed"})"));
    for (const auto* name :
         {"secret.wsz", "closed", "skin/main.bmp", "run/listing.json", "logs/secret.log"})
        fs::permissions(path(name), fs::perms::none);
    fs::permissions(folder_.path(),
                    fs::perms::owner_all | fs::perms::group_exec | fs::perms::others_exec);
    const auto outcome = script(R"sh(
        as=()
        if [ "$(id -u)" = 0 ]; then
            as=(setpriv --reuid=65534 --regid=65534 --clear-groups)
            "${as[@]}" test -x "$1" || exit 77
        fi
        for input in "$2/secret.wsz" "$2/closed" "$2/skin"; do
            "${as[@]}" "$1" info "$input" && exit 1
        done
        "${as[@]}" "$1" --png "$2/closed/a.png" "$2/skin.wsz"
        [ $? = 2 ] || exit 2
        "${as[@]}" "$1" corpus "$2/skin" --out "$2/run" --resume
        [ $? = 2 ] || exit 3
        # A crash log is not needed for the report, whose gate fails here.
        "${as[@]}" "$1" corpus-report "$2/results.jsonl" --crashes "$2/logs" \
            --markdown /dev/null --json /dev/null
        [ $? = 1 ])sh",
                                {SKINTOOL_PROGRAM, folder_.path()});
    fs::permissions(path("closed"), fs::perms::owner_all);
    if (outcome.status == skipped)
        GTEST_SKIP() << "no other user to be";
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err,
              "skintool: " + path("secret.wsz") + ": Unreadable archive: Permission denied\n" +
                  "skintool: " + path("closed") + ": Unreadable archive: Permission denied\n" +
                  "skintool: " + path("skin") + ": Unreadable archive: Permission denied\n" +
                  "skintool: " + path("closed/a.png") + ": Permission denied\n" +
                  "skintool: " + path("run/listing.json") + ": Permission denied\n" + "skintool: " +
                  path("logs/secret.log") + ": crash log skipped: Permission denied\n");
}

TEST_F(Surroundings, MakeAGalleryWhereNoThreadStartsAndAFolderIsClosed)
{
    fs::create_directories(folder_ / "skins/closed");
    for (const auto* name : {"skins/a.wsz", "skins/b.wsz"})
        folder_.write(name, support::readFile(path("skin.wsz")));
    fs::create_directory(folder_ / "out");
    fs::permissions(path("skins/closed"), fs::perms::none);
    fs::permissions(path("out"), fs::perms::all);
    fs::permissions(folder_.path(),
                    fs::perms::owner_all | fs::perms::group_exec | fs::perms::others_exec);
    const auto outcome = script(R"sh(
        as=()
        if [ "$(id -u)" = 0 ]; then
            as=(setpriv --reuid=65534 --regid=65534 --clear-groups)
            "${as[@]}" test -x "$1" || exit 77
        fi
        ASAN_OPTIONS=detect_leaks=0 exec "${as[@]}" \
            prlimit --nproc=1 "$1" gallery "$2/skins" --out "$2/out")sh",
                                {SKINTOOL_PROGRAM, folder_.path()});
    fs::permissions(path("skins/closed"), fs::perms::owner_all);
    if (outcome.status == skipped)
        GTEST_SKIP() << "no other user to be";
    EXPECT_EQ(outcome, (Outcome{0, path("out/index.html") + ": 2 skins, 0 refused\n",
                                "skintool: " + path("skins/closed") + ": Permission denied\n"}));
}

TEST_F(Surroundings, KeepWhatThereIsWhereADiskIsFull)
{
    fs::create_directory(folder_ / "disk");
    const auto outcome = script(R"sh(
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
END)sh",
                                {SKINTOOL_PROGRAM, folder_.path()});
    if (outcome.status == skipped)
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
