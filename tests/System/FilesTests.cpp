#include "SkinKit/System/Folder.h"
#include "SkinKit/System/InputFile.h"
#include "SkinKit/System/OutputFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <fstream>

using namespace SkinKit;
namespace fs = std::filesystem;
using support::bytes;
using support::readFile;
using support::TemporaryFolder;

namespace {

std::vector<std::string> namesIn(const fs::path& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

using Names = std::vector<std::string>;

unsigned permissions(const fs::path& path)
{
    return static_cast<unsigned>(fs::status(path).permissions());
}

// A disk full after so many bytes of a file, as far as this process can tell.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
};

void bindSocket(const fs::path& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.string().copy(address.sun_path, sizeof address.sun_path - 1);
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(descriptor);
}

}

TEST(Files, FindsTheNameThatAPersonKnowsAFileBy)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "a");
    fs::create_directory_symlink("a", folder / "link");
    for (const auto* path : {"a", "a/", "a//", "a/.", "a/./"})
        EXPECT_EQ(Files::named(folder / path).filename(), "a") << path;
    EXPECT_EQ(Files::named(folder / "none/b").filename(), "b");
    EXPECT_EQ(Files::named(folder / "link/").filename(), "link"); // not what it leads to
    EXPECT_EQ(Files::named(folder / "a/..").filename(), folder.path().filename());
    EXPECT_EQ(Files::named("."), fs::current_path());
    EXPECT_EQ(Files::named("/").filename(), "");
    EXPECT_EQ(Files::named(""), "");
}

TEST(Files, ReadsAFileUpToTheLimitAndNotAByteBeyond)
{
    const TemporaryFolder folder;
    for (const std::size_t size : {0U, 1U, 4095U, 4096U, 4097U, 20'000U}) {
        const ByteBuffer content(size, 7);
        const auto path = folder.write("file", content);
        const auto limit = static_cast<std::int64_t>(size);
        EXPECT_EQ(Files::read(path, limit), content);
        EXPECT_EQ(Files::read(path, INT64_MAX), content);
        if (size > 0) {
            EXPECT_EQ(Files::read(path, limit - 1).error(), std::errc::file_too_large);
        }
    }
    // Whatever its size was said to be: those under /proc say nothing.
    const auto grown = Files::read("/proc/self/status", 1 << 20);
    ASSERT_TRUE(grown);
    EXPECT_GT(grown->size(), 100U);
    EXPECT_EQ(Files::read("/proc/self/status", 10).error(), std::errc::file_too_large);
}

TEST(Files, RefusesWhatIsNoRegularFileWithoutWaiting)
{
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    bindSocket(folder / "socket");
    fs::create_symlink(folder / "pipe", folder / "link");
    fs::create_symlink("loop", folder / "loop");
    const std::pair<fs::path, std::errc> rows[] = {
        {folder / "pipe",    std::errc::not_supported                },
        {folder / "link",    std::errc::not_supported                },
        {folder / "socket",  std::errc::not_supported                },
        {"/dev/zero",        std::errc::not_supported                },
        {"/dev/null",        std::errc::not_supported                },
        {folder.path(),      std::errc::is_a_directory               },
        {folder / "missing", std::errc::no_such_file_or_directory    },
        {folder / "loop",    std::errc::too_many_symbolic_link_levels},
    };
    for (const auto& [path, error] : rows)
        EXPECT_EQ(Files::read(path, 1000).error(), error) << path;
    EXPECT_EQ(Files::kind(folder / "pipe"), Files::Kind::other);
    EXPECT_EQ(Files::kind(folder.path()), Files::Kind::folder);
}

TEST(Files, ReadsNamesThatAreNotTextAndLinksWhereTheyAreFollowed)
{
    const TemporaryFolder folder;
    const auto path = folder.write("\xFF\xFE", bytes("content"));
    fs::create_symlink(path, folder / "link");
    EXPECT_EQ(Files::kind(folder / "link"), Files::Kind::regularFile);
    EXPECT_EQ(Files::read(folder / "link", 1000), bytes("content"));
    EXPECT_FALSE(Files::read(folder / "link", 1000, Files::Links::rejected));
}

TEST(Files, GivesLinesWholeThatAreReadInPieces)
{
    const TemporaryFolder folder;
    std::vector<std::string> lines{""};
    for (std::size_t i = 0; i < 300; ++i)
        lines.push_back(std::to_string(i) + std::string(i * 7 % 1000, 'x'));
    lines.push_back(std::string(200'000, 'y'));
    lines.push_back("without a line feed");
    std::string text;
    for (const auto& line : lines)
        text.append(text.empty() && line.empty() ? "" : "\n").append(line);

    std::vector<std::string> found;
    const auto take = [&](std::string_view line) { found.emplace_back(line); };
    EXPECT_FALSE(Files::forEachLine(folder.write("lines", bytes(text)), take));
    EXPECT_EQ(found, lines);
    EXPECT_EQ(Files::forEachLine(folder / "none", take), std::errc::no_such_file_or_directory);
}

TEST(Files, PassesOverALineThatIsTooLong)
{
    const TemporaryFolder folder;
    const auto file = folder.write("lines", bytes("a\n"));
    std::filesystem::resize_file(file, static_cast<std::uintmax_t>(Files::maxLineBytes) + 99);
    std::ofstream(file, std::ios::app) << "\nb";
    std::vector<std::string> found;
    EXPECT_FALSE(
        Files::forEachLine(file, [&](std::string_view line) { found.emplace_back(line); }));
    EXPECT_EQ(found, (std::vector<std::string>{"a", "b"}));
}

TEST(Files, ListsAFolderInByteOrderOfTheNames)
{
    const TemporaryFolder folder;
    for (const std::string_view name : {"b", "B", "a.bmp", ".hidden", "\xFF", "é"})
        folder.write(name, bytes(name));
    fs::create_directory(folder / "folder");
    fs::create_symlink("a.bmp", folder / "link");
    const auto entries = Files::list(folder.path());
    ASSERT_TRUE(entries);
    Names names;
    for (const auto& entry : *entries) {
        names.push_back(entry.name);
        const bool isOther = entry.name == "folder" || entry.name == "link";
        EXPECT_EQ(entry.isRegularFile, !isOther) << entry.name;
        if (!isOther) {
            EXPECT_EQ(entry.size, std::ssize(entry.name));
        }
    }
    EXPECT_EQ(names, (Names{".hidden", "B", "a.bmp", "b", "folder", "link", "é", "\xFF"}));
    const auto count = std::ssize(*Files::list(folder.path()));
    EXPECT_TRUE(Files::list(folder.path(), count));
    EXPECT_EQ(Files::list(folder.path(), count - 1).error(), std::errc::file_too_large);
    EXPECT_EQ(Files::list(folder / "b").error(), std::errc::not_a_directory);
    EXPECT_EQ(Files::list(folder / "x").error(), std::errc::no_such_file_or_directory);
}

TEST(Files, ReplacesAFileInOneStep)
{
    const TemporaryFolder folder;
    const auto path = folder.write("file", bytes("old"));
    std::ifstream reader(path);
    fs::create_hard_link(path, folder / "other name");
    EXPECT_FALSE(Files::write(path, bytes("new")));
    EXPECT_EQ(readFile(path), bytes("new"));
    // Whoever had the old one open, or another name for it, still sees it whole.
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old");
    EXPECT_EQ(readFile(folder / "other name"), bytes("old"));
    EXPECT_EQ(namesIn(folder.path()), (Names{"file", "other name"}));
}

TEST(Files, GivesANewFileWhatTheUmaskLeavesAndAnOldOneItsOwnPermissions)
{
    const TemporaryFolder folder;
    const auto old = folder.write("old", bytes("old"));
    ASSERT_EQ(::chmod(old.c_str(), 0604), 0);
    const mode_t before = ::umask(0026);
    EXPECT_FALSE(Files::write(folder / "new", bytes("1")));
    EXPECT_FALSE(Files::write(old, bytes("2")));
    ::umask(before);
    EXPECT_EQ(permissions(folder / "new"), 0640U);
    EXPECT_EQ(permissions(old), 0604U);
}

TEST(Files, WritesWhereLinksLeadAndLeavesThemLinks)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "sub");
    folder.write("file", bytes("old"));
    fs::create_symlink("../file", folder / "sub/link"); // relative to the link's own folder
    fs::create_symlink(folder / "sub/link", folder / "chain");
    fs::create_symlink("sub/yet to be made", folder / "dangling");
    fs::create_symlink("loop", folder / "loop");

    EXPECT_FALSE(Files::write(folder / "chain", bytes("new")));
    EXPECT_EQ(readFile(folder / "file"), bytes("new"));
    EXPECT_FALSE(Files::write(folder / "dangling", bytes("made")));
    EXPECT_EQ(readFile(folder / "sub/yet to be made"), bytes("made"));
    EXPECT_EQ(Files::write(folder / "loop", {}), std::errc::too_many_symbolic_link_levels);
    for (const char* link : {"sub/link", "chain", "dangling", "loop"})
        EXPECT_TRUE(fs::is_symlink(folder / link)) << link;
    EXPECT_EQ(namesIn(folder.path()), (Names{"chain", "dangling", "file", "loop", "sub"}));
}

TEST(Files, WritesDevicesAndPipesInPlace)
{
    const TemporaryFolder folder;
    EXPECT_FALSE(Files::write("/dev/null", bytes("gone")));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(Files::write("/dev/full", bytes("x")), std::errc::no_space_on_device);

    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    const int reader = ::open((folder / "pipe").c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_FALSE(Files::write(folder / "pipe", bytes("through")));
    char received[16] = {};
    EXPECT_EQ(::read(reader, received, sizeof received), 7);
    ::close(reader);
    EXPECT_STREQ(received, "through");
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
}

TEST(Files, WritesOnToStandardOutputByAnyOfItsNames)
{
    const TemporaryFolder folder;
    const auto path = folder.write("out", {});
    const int saved = ::dup(STDOUT_FILENO);
    const int descriptor = ::open(path.c_str(), O_WRONLY);
    ::dup2(descriptor, STDOUT_FILENO);
    const auto first = Files::write("/dev/stdout", bytes("one "));
    const auto second = Files::write(path, bytes("two"));
    ::dup2(saved, STDOUT_FILENO);
    ::close(saved);
    ::close(descriptor);
    EXPECT_FALSE(first || second);
    EXPECT_EQ(readFile(path), bytes("one two"));
}

TEST(Files, WritesOnToAnyOpenDescriptorByItsName)
{
    const TemporaryFolder folder;
    const auto path = folder.write("held", {});
    const int descriptor = ::open(path.c_str(), O_WRONLY);
    for (const auto* prefix : {"/dev/fd/", "/proc/self/fd/"})
        EXPECT_FALSE(Files::write(prefix + std::to_string(descriptor), bytes("more ")));
    fs::create_symlink("/dev/fd/" + std::to_string(descriptor), folder / "link");
    EXPECT_FALSE(Files::write(folder / "link", bytes("and more")));
    ::close(descriptor);
    EXPECT_EQ(readFile(path), bytes("more more and more"));
    EXPECT_EQ(Files::write("/dev/fd/" + std::to_string(descriptor), bytes("x")),
              std::errc::bad_file_descriptor);
}

TEST(Files, LeavesEverythingAsItWasWhenWritingFails)
{
    const TemporaryFolder folder;
    folder.write("file", bytes("old"));
    fs::create_directory(folder / "folder");
    EXPECT_EQ(Files::write(folder / "folder", bytes("x")), std::errc::is_a_directory);
    EXPECT_EQ(Files::write(folder / "no/file", bytes("x")), std::errc::no_such_file_or_directory);
    EXPECT_EQ(Files::write(folder / "file/x", bytes("x")), std::errc::not_a_directory);
    EXPECT_TRUE(Files::write("", bytes("x")));

    std::error_code error;
    std::error_code newError;
    {
        const FullDisk full(1000);
        error = Files::write(folder / "file", ByteBuffer(5000, 1));
        newError = Files::write(folder / "new", ByteBuffer(5000, 1));
    }
    EXPECT_EQ(error, std::errc::file_too_large);
    EXPECT_EQ(newError, std::errc::file_too_large);

    EXPECT_EQ(readFile(folder / "file"), bytes("old"));
    EXPECT_EQ(namesIn(folder.path()), (Names{"file", "folder"}));
}

TEST(Files, WritesAFileWhoseNameIsAsLongAsNamesMayBe)
{
    const TemporaryFolder folder;
    const std::string name(255, 'n');
    EXPECT_FALSE(Files::write(folder / name, bytes("content")));
    EXPECT_EQ(namesIn(folder.path()), Names{name});
}

TEST(OutputFile, WritesIntoTheVeryFileThatStandsThere)
{
    const TemporaryFolder folder;
    const auto path = folder.write("file", bytes("something longer"));
    fs::create_hard_link(path, folder / "other");
    auto file = Files::OutputFile::open(path);
    ASSERT_TRUE(file);
    EXPECT_EQ(readFile(path), bytes("")); // empty until all is written
    EXPECT_FALSE(std::move(*file).write(bytes("new")));
    EXPECT_EQ(readFile(folder / "other"), bytes("new"));

    auto made = Files::OutputFile::open(folder / "made");
    ASSERT_TRUE(made);
    EXPECT_FALSE(std::move(*made).write(bytes("made")));
    EXPECT_EQ(readFile(folder / "made"), bytes("made"));
    EXPECT_EQ(Files::OutputFile::open(folder / "none/file").error(),
              std::errc::no_such_file_or_directory);
}

TEST(OutputFile, IsEmptyWhenNotAllOfItCanBeWritten)
{
    const TemporaryFolder folder;
    auto file = Files::OutputFile::open(folder / "file");
    ASSERT_TRUE(file);
    std::error_code error;
    {
        const FullDisk full(1000);
        error = std::move(*file).write(ByteBuffer(5000, 1));
    }
    EXPECT_EQ(error, std::errc::file_too_large);
    EXPECT_EQ(readFile(folder / "file"), bytes(""));
}
