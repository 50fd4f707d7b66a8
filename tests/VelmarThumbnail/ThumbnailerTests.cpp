#include "SkinKit/Graphics/PNGWriter.h"
#include "SkinKit/Version.h"
#include "VelmarThumbnail/ThumbnailProvider.h"
#include "VelmarThumbnail/ThumbnailerOptions.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/Program.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <regex>
#include <thread>

using namespace SkinKit;
using namespace VelmarThumbnail;
using support::bytes;
using support::Outcome;
using support::readFile;
using support::SkinBuilder;
using support::TemporaryFolder;

namespace {

Outcome thumbnailer(const std::vector<std::string>& arguments, long limitBytes = 0)
{
    return support::run(THUMBNAILER_PROGRAM, arguments, limitBytes);
}

// What the provider gives for the same file at this size.
std::optional<Image> provided(const std::filesystem::path& file, double size)
{
    std::optional<Image> image;
    ThumbnailProvider::provideThumbnail(
        {
            .file = file, .maximumSize = {size, size},
                 .minimumSize = {},
                 .scale = 1
    },
        [&](const auto& reply, const auto&) { image = reply ? reply->image(1) : std::nullopt; });
    return image;
}

Outcome trouble(const std::string& error)
{
    return {2, "", "velmar-thumbnailer: " + error + "\n"};
}

class ThumbnailerTest : public testing::Test {
protected:
    // A process that has locked itself in can't look for leaks at its end; the tests of the
    // provider do.
    ThumbnailerTest() { ::setenv("ASAN_OPTIONS", "detect_leaks=0:quarantine_size_mb=16", 1); }

    const TemporaryFolder folder;
    const std::string skin = folder.write("a skin.wsz", SkinBuilder().allSheets().zip()).string();
    const std::string output = (folder / "out.png").string();
};

}

TEST_F(ThumbnailerTest, PrintsHelpVersionAndUsageErrors)
{
    const std::string usage(ThumbnailerOptions::usage);
    for (const std::string word : {"-h", "--help"}) {
        const auto outcome = thumbnailer({word});
        EXPECT_TRUE(outcome.status == 0 && outcome.err.empty()) << outcome;
        EXPECT_TRUE(outcome.out.starts_with(usage + "\n\n"));
    }
    EXPECT_EQ(thumbnailer({"--version"}).out, "velmar-thumbnailer " + std::string(version) + "\n");
    EXPECT_EQ(thumbnailer({"--bad\x1B"}), trouble("unknown option: --bad\\x1B\n" + usage));
}

TEST_F(ThumbnailerTest, WritesTheImageOfEachSize)
{
    const std::pair<int, Size> rows[] = {
        {1,    {1, 1}      },
        {128,  {128, 54}   },
        {4096, {3850, 1624}},
    };
    for (const auto& [size, expected] : rows) {
        EXPECT_EQ(thumbnailer({"-s", std::to_string(size), skin, output}), Outcome{});
        EXPECT_EQ(PNGWriter::read(output)->size(), expected);
        EXPECT_EQ(PNGWriter::read(output), provided(skin, size));
    }
}

TEST_F(ThumbnailerTest, ReadsFoldersFileURIsAndIncompleteSkins)
{
    const auto unpacked = SkinBuilder().allSheets().unpack(folder / "unpacked") + "/";
    const auto main = support::solidImage({275, 116}, {1, 2, 3});
    const auto lacking = folder.write("lacking.wsz", SkinBuilder().sheet("main.bmp", main).zip());
    for (const auto& [input, file] : {
             std::pair{unpacked,                                             skin            },
             {"file://" + folder.path().string() + "/a%20skin.wsz", skin            },
             {lacking.string(),                                     lacking.string()}
    }) {
        std::filesystem::remove(output);
        EXPECT_EQ(thumbnailer({input, output}), Outcome{});
        EXPECT_EQ(PNGWriter::read(output), provided(file, 128));
    }
}

TEST_F(ThumbnailerTest, WritesTheWindowsSizeIntoTheExistingFile)
{
    using namespace std::string_view_literals;
    std::filesystem::create_hard_link(folder.write("out.png", bytes("")), folder / "same");
    EXPECT_EQ(thumbnailer({skin, output}), Outcome{});
    const auto file = readFile(folder / "same");
    for (const auto text : {"tEXtThumb::Image::Width\0"
                            "275"sv,
                            "tEXtThumb::Image::Height\0"
                            "116"sv})
        EXPECT_TRUE(asText(file).contains(text)) << text;
}

TEST_F(ThumbnailerTest, LeavesTheOutputEmptyWhenThereIsNoImage)
{
    const std::string here = folder.path().string();
    folder.write("b\nad.wsz", SkinBuilder().text("skin.xml", "<x/>").zip());
    ::mkfifo((folder / "pipe").c_str(), 0600);
    folder.write("out.png", bytes("an old picture"));
    const std::pair<std::string, std::string> rows[] = {
        {"/none",      "/none: Unreadable archive: No such file or directory"},
        {"/pipe",      "/pipe: Unreadable archive: Not a regular file"       },
        {"/b\nad.wsz", "/b\\nad.wsz: Modern (Winamp 3/5) skin; not supported"},
    };
    for (const auto& [input, error] : rows)
        EXPECT_EQ(thumbnailer({here + input, output}), trouble(here + error));
    EXPECT_EQ(readFile(output), bytes(""));
    EXPECT_EQ(thumbnailer({skin, output}, 100), trouble(output + ": File too large"));
    EXPECT_EQ(readFile(output), bytes(""));
    std::filesystem::remove(output);
    EXPECT_EQ(thumbnailer({here + "/none", output}).status, 2);
    EXPECT_FALSE(std::filesystem::exists(output));
    EXPECT_EQ(thumbnailer({skin, here + "/no/out"}),
              trouble(here + "/no/out: No such file or directory"));
}

// Where it starts does not matter: most of the file is never read.
TEST_F(ThumbnailerTest, ReadsASkinBehindMoreThanItsMemoryHolds)
{
    const auto large = folder.write("large.wsz", {});
    std::filesystem::resize_file(large, std::uintmax_t{2} << 30);
    std::ofstream(large, std::ios::binary | std::ios::app) << asText(readFile(skin));
    EXPECT_EQ(thumbnailer({large.string(), output}).err, "");
    EXPECT_EQ(PNGWriter::read(output), provided(skin, 128));
}

// Its output is a pipe that nobody empties, so that it waits there, with the work done.
TEST_F(ThumbnailerTest, IsLockedInBeforeItLooksIntoTheSkin)
{
    ::mkfifo(output.c_str(), 0600);
    const int pipe = ::open(output.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    ::fcntl(pipe, F_SETPIPE_SZ, 4096);
    const pid_t child = ::fork();
    if (child == 0) {
        ::execl(THUMBNAILER_PROGRAM, THUMBNAILER_PROGRAM, "-s", "4096", skin.c_str(),
                output.c_str(), nullptr);
        ::_exit(127);
    }
    ByteBuffer start(8);
    for (int i = 0; i < 1000 && ::read(pipe, start.data(), start.size()) < 0; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    std::ifstream stream("/proc/" + std::to_string(child) + "/status");
    const std::string status(std::istreambuf_iterator<char>(stream), {});
    std::ifstream limitsStream("/proc/" + std::to_string(child) + "/limits");
    const std::string limits(std::istreambuf_iterator<char>(limitsStream), {});
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(pipe);

    EXPECT_EQ(asText(start).substr(1, 3), "PNG");
    EXPECT_NE(status.find("NoNewPrivs:\t1\n"), status.npos) << status;
    EXPECT_NE(status.find("Seccomp:\t2\n"), status.npos) << status;
    for (const char* const limit : {"Max cpu time +3 +4 ", "Max file size +67108864 ",
                                    "Max address space +[0-9]+ ", "Max open files +0 +0 "})
        EXPECT_TRUE(std::regex_search(limits, std::regex(limit))) << limits;
}
