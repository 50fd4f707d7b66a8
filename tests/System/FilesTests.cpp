#include "SkinKit/System/Folder.h"
#include "SkinKit/System/InputFile.h"
#include "SkinKit/System/OutputFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <functional>

using namespace SkinKit;
namespace fs = std::filesystem;
using support::bytes;
using support::readFile;
using Names = std::vector<std::string>;

namespace {

class FilesTest : public testing::Test {
protected:
    void expectNames(Names expected) const
    {
        Names names;
        for (const auto& entry : fs::directory_iterator(folder.path()))
            names.push_back(entry.path().filename());
        std::ranges::sort(names);
        EXPECT_EQ(names, expected);
    }
    void expectContent(std::string_view file, std::string_view content) const
    {
        EXPECT_EQ(asText(readFile(folder / file)), content) << file;
    }

    const support::TemporaryFolder folder;
};

// What `write` gives where a disk is full after a thousand bytes of a file.
std::error_code onFullDisk(const std::function<std::error_code()>& write)
{
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{1000, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    const auto error = write();
    ::setrlimit(RLIMIT_FSIZE, &before);
    return error;
}

}

TEST_F(FilesTest, FindsTheNameThatAPersonKnowsAFileBy)
{
    fs::create_directory(folder / "a");
    fs::create_directory_symlink("a", folder / "link");
    EXPECT_EQ(Files::named(folder / "link//").filename(), "link"); // not what it leads to
    EXPECT_EQ(Files::named(folder / "a/..").filename(), folder.path().filename());
    EXPECT_EQ(Files::named("."), fs::current_path());
    EXPECT_EQ(Files::named(""), "");
}

TEST_F(FilesTest, ReadsAFileUpToTheLimitAndNotAByteBeyond)
{
    for (const std::size_t size : {1U, 4096U, 4097U, 20'000U}) {
        const ByteBuffer content(size, 7);
        const auto path = folder.write("\xFF", content);
        const auto limit = static_cast<std::int64_t>(size);
        EXPECT_EQ(Files::read(path, limit), content);
        EXPECT_EQ(Files::read(path, INT64_MAX), content);
        EXPECT_EQ(Files::read(path, limit - 1).error(), std::errc::file_too_large);
    }
    // Whatever its size was said to be: those under /proc have none.
    EXPECT_GT(Files::read("/proc/self/status", 1 << 20).value().size(), 100U);
    EXPECT_EQ(Files::read("/proc/self/status", 10).error(), std::errc::file_too_large);
}

TEST_F(FilesTest, ReadsOnlyRegularFilesAndWithoutWaiting)
{
    const auto file = folder.write("file", bytes("content"));
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    fs::create_symlink(folder / "pipe", folder / "link");
    fs::create_symlink("loop", folder / "loop");
    const std::pair<fs::path, std::errc> rows[] = {
        {folder / "pipe",    std::errc::not_supported                },
        {folder / "link",    std::errc::not_supported                },
        {"/dev/zero",        std::errc::not_supported                },
        {folder.path(),      std::errc::is_a_directory               },
        {folder / "missing", std::errc::no_such_file_or_directory    },
        {folder / "loop",    std::errc::too_many_symbolic_link_levels},
    };
    for (const auto& [path, error] : rows)
        EXPECT_EQ(Files::read(path, 1000).error(), error) << path;
    EXPECT_EQ(Files::kind(folder / "pipe"), Files::Kind::other);
    EXPECT_EQ(Files::kind(folder.path()), Files::Kind::folder);

    fs::create_symlink(file, folder / "good");
    EXPECT_EQ(Files::kind(folder / "good"), Files::Kind::regularFile);
    EXPECT_EQ(Files::read(folder / "good", 1000), bytes("content"));
    EXPECT_FALSE(Files::read(folder / "good", 1000, Files::Links::rejected));
}

TEST_F(FilesTest, GivesLinesWholeThatAreReadInPiecesButNoneThatIsTooLong)
{
    Names lines{"", "first"};
    for (std::size_t i = 0; i < 300; ++i)
        lines.push_back(std::to_string(i) + std::string(i * 7 % 1000, 'x'));
    lines.push_back(std::string(200'000, 'y'));
    std::string text;
    for (const auto& line : lines)
        text += line + "\n";
    const auto file = folder.write("lines", bytes(text));
    fs::resize_file(file, text.size() + static_cast<std::size_t>(Files::maxLineBytes) + 99);
    std::ofstream(file, std::ios::app) << "\nwithout a line feed";
    lines.push_back("without a line feed");

    Names found;
    const auto take = [&](std::string_view line) { found.emplace_back(line); };
    EXPECT_FALSE(Files::forEachLine(file, take));
    EXPECT_EQ(found, lines);
    EXPECT_EQ(Files::forEachLine(folder / "none", take), std::errc::no_such_file_or_directory);
}

TEST_F(FilesTest, ListsAFolderInByteOrderOfTheNames)
{
    for (const std::string_view name : {"b", "B", "a.bmp", ".hidden", "\xFF", "é"})
        folder.write(name, bytes(name));
    fs::create_directory(folder / "folder");
    fs::create_symlink("a.bmp", folder / "link");
    const auto entries = Files::list(folder.path());
    Names names;
    for (const auto& entry : entries.value()) {
        names.push_back(entry.name);
        const bool isOther = entry.name == "folder" || entry.name == "link";
        EXPECT_EQ(entry.isRegularFile, !isOther) << entry.name;
        EXPECT_TRUE(isOther || entry.size == std::ssize(entry.name)) << entry.name;
    }
    EXPECT_EQ(names, (Names{".hidden", "B", "a.bmp", "b", "folder", "link", "é", "\xFF"}));
    EXPECT_TRUE(Files::list(folder.path(), 8));
    EXPECT_EQ(Files::list(folder.path(), 7).error(), std::errc::file_too_large);
    EXPECT_EQ(Files::list(folder / "b").error(), std::errc::not_a_directory);
}

TEST_F(FilesTest, ReplacesAFileInOneStepAndKeepsItsPermissions)
{
    const std::string longest(255, 'n');
    const auto path = folder.write("file", bytes("old"));
    ASSERT_EQ(::chmod(path.c_str(), 0604), 0);
    std::ifstream reader(path);
    fs::create_hard_link(path, folder / "other");
    const mode_t before = ::umask(0026);
    EXPECT_FALSE(Files::write(path, bytes("new")));
    EXPECT_FALSE(Files::write(folder / longest, bytes("1")));
    ::umask(before);
    expectContent("file", "new");
    // Whoever had the old one open, or another name for it, still sees it whole.
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old");
    expectContent("other", "old");
    expectNames({"file", longest, "other"});
    EXPECT_EQ(fs::status(path).permissions(), fs::perms{0604});
    EXPECT_EQ(fs::status(folder / longest).permissions(), fs::perms{0640});
}

TEST_F(FilesTest, WritesWhereLinksLeadAndLeavesThemLinks)
{
    fs::create_directory(folder / "sub");
    folder.write("file", bytes("old"));
    fs::create_symlink("../file", folder / "sub/link"); // relative to the link's own folder
    fs::create_symlink(folder / "sub/link", folder / "chain");
    fs::create_symlink("sub/made", folder / "dangling");
    fs::create_symlink("loop", folder / "loop");
    EXPECT_FALSE(Files::write(folder / "chain", bytes("new")));
    expectContent("file", "new");
    EXPECT_FALSE(Files::write(folder / "dangling", bytes("made")));
    expectContent("sub/made", "made");
    EXPECT_EQ(Files::write(folder / "loop", {}), std::errc::too_many_symbolic_link_levels);
    for (const char* link : {"sub/link", "chain", "dangling"})
        EXPECT_TRUE(fs::is_symlink(folder / link)) << link;
    expectNames({"chain", "dangling", "file", "loop", "sub"});
}

TEST_F(FilesTest, WritesDevicesPipesAndOpenDescriptorsInPlace)
{
    EXPECT_EQ(Files::write("/dev/full", bytes("x")), std::errc::no_space_on_device);
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    const int reader = ::open((folder / "pipe").c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_FALSE(Files::write(folder / "pipe", bytes("through")));
    char received[16] = {};
    EXPECT_EQ(::read(reader, received, sizeof received), 7);
    ::close(reader);
    EXPECT_STREQ(received, "through");

    const auto path = folder.write("held", {});
    const int descriptor = ::open(path.c_str(), O_WRONLY);
    const auto number = std::to_string(descriptor);
    fs::create_symlink("/dev/fd/" + number, folder / "link");
    for (const auto& name : {fs::path("/dev/fd/" + number), folder / "link"})
        EXPECT_FALSE(Files::write(name, bytes("more ")));
    // Standard output also by the name of the file that it is.
    const int saved = ::dup(STDOUT_FILENO);
    ::dup2(descriptor, STDOUT_FILENO);
    const auto first = Files::write("/dev/stdout", bytes("one "));
    const auto second = Files::write(path, bytes("two"));
    ::dup2(saved, STDOUT_FILENO);
    ::close(saved);
    ::close(descriptor);
    EXPECT_FALSE(first || second);
    expectContent("held", "more more one two");
    EXPECT_EQ(Files::write("/dev/fd/" + number, bytes("x")), std::errc::bad_file_descriptor);
}

TEST_F(FilesTest, LeavesEverythingAsItWasWhenWritingFails)
{
    folder.write("file", bytes("old"));
    fs::create_directory(folder / "folder");
    EXPECT_EQ(Files::write(folder / "folder", bytes("x")), std::errc::is_a_directory);
    EXPECT_EQ(Files::write(folder / "no/file", bytes("x")), std::errc::no_such_file_or_directory);
    EXPECT_TRUE(Files::write("", bytes("x")));
    for (const auto* name : {"file", "new"})
        EXPECT_EQ(onFullDisk([&] { return Files::write(folder / name, ByteBuffer(5000, 1)); }),
                  std::errc::file_too_large);
    expectContent("file", "old");
    expectNames({"file", "folder"});
}

TEST_F(FilesTest, WritesAllOrNothingIntoTheVeryFileThatIsThere)
{
    const auto path = folder.write("file", bytes("something longer"));
    fs::create_hard_link(path, folder / "other");
    auto file = Files::OutputFile::open(path);
    expectContent("file", ""); // empty until all is written
    EXPECT_FALSE(std::move(file).value().write(bytes("new")));
    expectContent("other", "new");

    auto made = Files::OutputFile::open(folder / "made");
    EXPECT_EQ(onFullDisk([&] { return std::move(made).value().write(ByteBuffer(5000, 1)); }),
              std::errc::file_too_large);
    expectContent("made", "");
    EXPECT_EQ(Files::OutputFile::open(folder / "none/file").error(),
              std::errc::no_such_file_or_directory);
}
