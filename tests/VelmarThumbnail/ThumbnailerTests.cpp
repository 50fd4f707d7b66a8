#include "SkinKit/QuickLook/ThumbnailFit.h"
#include "SkinKit/Rendering/PNGWriter.h"
#include "SkinKit/Version.h"
#include "VelmarThumbnail/ThumbnailProvider.h"
#include "VelmarThumbnail/ThumbnailerOptions.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/Program.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"

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

// What the provider makes of the same file at this size.
std::optional<Image> provided(const std::filesystem::path& file, double size)
{
    std::optional<Image> image;
    ThumbnailProvider::provideThumbnail(
        {
            file, {size, size},
             {},
             1
    },
        [&](const auto& reply, const auto&) { image = reply ? reply->image(1) : std::nullopt; });
    return image;
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

TEST_F(ThumbnailerTest, PrintsHelpAndVersion)
{
    for (const std::string word : {"-h", "--help"}) {
        const auto outcome = thumbnailer({word});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_TRUE(outcome.out.starts_with(std::string(ThumbnailerOptions::usage) + "\n\n"));
        EXPECT_EQ(outcome.err, "");
    }
    EXPECT_EQ(thumbnailer({"--version"}).out, "velmar-thumbnailer " + std::string(version) + "\n");
    const auto outcome = thumbnailer({"--bad\x1B"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "velmar-thumbnailer: unknown option: --bad\\x1B\n" +
                               std::string(ThumbnailerOptions::usage) + "\n");
}

TEST_F(ThumbnailerTest, WritesThePictureOfEachSize)
{
    struct Row {
        int size;
        Size expected;
    };
    const Row rows[] = {
        {1,    {1, 1}      },
        {128,  {128, 54}   },
        {256,  {256, 108}  },
        {512,  {275, 116}  },
        {1024, {825, 348}  },
        {4096, {3850, 1624}},
    };
    for (const auto& row : rows) {
        const auto outcome = thumbnailer({"-s", std::to_string(row.size), skin, output});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out + outcome.err, "");
        const auto image = PNGWriter::read(output);
        ASSERT_TRUE(image);
        EXPECT_EQ(image->size(), row.expected);
        EXPECT_EQ(image, provided(skin, row.size));
    }
    thumbnailer({skin, output});
    EXPECT_EQ(PNGWriter::read(output)->size(), (Size{128, 54}));
}

TEST_F(ThumbnailerTest, DrawsWhatASkinLacksThoughItIsLockedIn)
{
    const auto lacking = folder.write(
        "lacking.wsz",
        SkinBuilder().sheet("main.bmp", support::solidImage({275, 116}, {1, 2, 3})).zip());
    const auto outcome = thumbnailer({lacking.string(), output});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(PNGWriter::read(output), provided(lacking, 128));
}

TEST_F(ThumbnailerTest, NeverExceedsTheSizeAskedFor)
{
    for (int size = ThumbnailerOptions::smallestSize; size <= ThumbnailerOptions::largestSize;
         ++size) {
        const auto side = static_cast<double>(size);
        const auto context =
            ThumbnailFit::fit({side, side}, {}, 1, ThumbnailProvider::window).contextSize;
        ASSERT_LE(std::max(context.width, context.height), side);
        ASSERT_GE(std::min(context.width, context.height), 1);
    }
}

TEST_F(ThumbnailerTest, TellsHowLargeTheWindowIs)
{
    thumbnailer({skin, output});
    using namespace std::string_view_literals;
    const auto file = readFile(output);
    EXPECT_NE(asText(file).find("tEXtThumb::Image::Width\0"
                                "275"sv),
              std::string_view::npos);
    EXPECT_NE(asText(file).find("tEXtThumb::Image::Height\0"
                                "116"sv),
              std::string_view::npos);
}

TEST_F(ThumbnailerTest, WritesIntoTheVeryFileThatStandsThere)
{
    std::filesystem::create_hard_link(folder.write("out.png", bytes("")), folder / "same");
    EXPECT_EQ(thumbnailer({skin, output}).status, 0);
    EXPECT_TRUE(PNGWriter::read(folder / "same"));
}

TEST_F(ThumbnailerTest, TakesFoldersAndFileURIs)
{
    thumbnailer({"file://" + folder.path().string() + "/a%20skin.wsz", output});
    EXPECT_EQ(PNGWriter::read(output), provided(skin, 128));

    std::filesystem::create_directory(folder / "unpacked");
    const auto archive = SkinBuilder().allSheets().archive();
    for (const auto& [name, content] : archive.files())
        folder.write("unpacked/" + name, content);
    EXPECT_EQ(thumbnailer({(folder / "unpacked/").string(), (folder / "2.png").string()}).err, "");
    EXPECT_EQ(PNGWriter::read(folder / "2.png"), provided(skin, 128));
}

TEST_F(ThumbnailerTest, LeavesTheOutputEmptyWhenThereIsNoPicture)
{
    const auto bad = folder.write("b\nad.wsz", SkinBuilder().text("skin.xml", "<x/>").zip());
    folder.write("out.png", bytes("an old picture"));
    const auto refused = thumbnailer({bad.string(), output});
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.err, "velmar-thumbnailer: " + folder.path().string() +
                               "/b\\nad.wsz: Modern (Winamp 3/5) skin; not supported\n");
    EXPECT_EQ(readFile(output), bytes(""));

    const auto full = thumbnailer({skin, output}, 100);
    EXPECT_EQ(full.status, 2);
    EXPECT_EQ(full.err, "velmar-thumbnailer: " + output + ": File too large\n");
    EXPECT_EQ(readFile(output), bytes(""));
}

TEST_F(ThumbnailerTest, RefusesFilesThatItCantUse)
{
    ::mkfifo((folder / "pipe").c_str(), 0600);
    struct Row {
        std::string input;
        std::string output;
        std::string blamed;
        std::string text;
    };
    const Row rows[] = {
        {(folder / "none").string(), output,                                   (folder / "none").string(),
         "Unreadable archive: No such file or directory"},
        {(folder / "pipe").string(), output,                                   (folder / "pipe").string(),
         "Unreadable archive: Not a regular file"       },
        {skin,                       (folder / "no/out").string(),             (folder / "no/out").string(),
         "No such file or directory"                    },
        {skin,                       folder.path().string() + "/./a skin.wsz", folder.path().string() + "/./a skin.wsz",
         "is the skin itself"                           },
    };
    for (const auto& row : rows) {
        const auto outcome = thumbnailer({row.input, row.output});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err, "velmar-thumbnailer: " + row.blamed + ": " + row.text + "\n");
    }
    EXPECT_FALSE(std::filesystem::exists(output));
    EXPECT_TRUE(provided(skin, 128)); // not overwritten
}

TEST_F(ThumbnailerTest, LeavesTheFilesOfAnUnpackedSkinAlone)
{
    std::filesystem::create_directory(folder / "unpacked");
    const auto sheet = folder.write("unpacked/main.bmp", bytes("a sheet")).string();
    EXPECT_EQ(thumbnailer({(folder / "unpacked").string(), sheet}).err,
              "velmar-thumbnailer: " + sheet + ": is a file of the skin\n");
    EXPECT_EQ(readFile(sheet), bytes("a sheet"));
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
