#include "SkinKit/System/Journal.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <string>

using namespace SkinKit;
using support::bytes;
using support::TemporaryFolder;

namespace {

std::string textOf(const std::filesystem::path& path)
{
    return std::string(asText(support::readFile(path)));
}

}

TEST(Journal, GrowsByLinesBehindWhatIsThere)
{
    const TemporaryFolder folder;
    const auto path = folder / "file";
    EXPECT_FALSE(Journal::open(path)->append("one"));
    auto journal = Journal::open(path);
    EXPECT_EQ(journal->size(), 4);
    EXPECT_FALSE(journal->append(""));
    EXPECT_EQ(textOf(path), "one\n\n");
    EXPECT_FALSE(journal->cut(4));
    EXPECT_FALSE(journal->append("two"));
    EXPECT_EQ(textOf(path), "one\ntwo\n");
}

TEST(Journal, ClosesALineThatWasCutOff)
{
    const TemporaryFolder folder;
    const auto path = folder.write("file", bytes("one\ntw"));
    auto journal = Journal::open(path);
    for (int i = 0; i < 2; ++i)
        EXPECT_FALSE(journal->closeCutLine());
    EXPECT_FALSE(journal->append("three"));
    EXPECT_EQ(textOf(path), "one\ntw\nthree\n");
}

TEST(Journal, BelongsToOneAtATime)
{
    const TemporaryFolder folder;
    const auto path = folder.write("file", bytes("kept\n"));
    {
        const auto first = Journal::open(path);
        EXPECT_EQ(Journal::open(path).error(), std::errc::device_or_resource_busy);
    }
    EXPECT_TRUE(Journal::open(path));
}

TEST(Journal, AddsNothingToAFileThatNoLongerHasItsName)
{
    const TemporaryFolder folder;
    const auto path = folder / "file";
    const std::function<void()> rows[] = {
        [&] { std::filesystem::remove(path); },
        [&] { std::filesystem::rename(path, folder / "away"); },
        [&] { std::filesystem::rename(folder.write("new", {}), path); },
    };
    for (const auto& disturb : rows) {
        auto journal = Journal::open(path);
        ASSERT_TRUE(journal);
        EXPECT_FALSE(journal->append("one"));
        disturb();
        EXPECT_EQ(journal->append("two"), std::errc::no_such_file_or_directory);
    }
    EXPECT_EQ(textOf(folder / "away"), "one\n");
}

TEST(Journal, TakesAnotherName)
{
    const TemporaryFolder folder;
    const auto path = folder / "file";
    const auto other = folder.write("other", bytes("old\n"));
    auto journal = Journal::open(path);
    EXPECT_FALSE(journal->append("one"));
    EXPECT_FALSE(journal->rename(other));
    EXPECT_FALSE(journal->append("two"));
    EXPECT_EQ(textOf(other), "one\ntwo\n");
    EXPECT_EQ(Journal::open(other).error(), std::errc::device_or_resource_busy);

    std::filesystem::create_hard_link(other, path); // another name of the same file
    EXPECT_FALSE(journal->rename(path));
    EXPECT_FALSE(std::filesystem::exists(other));
    EXPECT_EQ(textOf(path), "one\ntwo\n");
}

TEST(Journal, RefusesWhatIsNoRegularFileWithoutWaiting)
{
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(Journal::open(folder / "pipe").error(), std::errc::not_supported);
    EXPECT_EQ(Journal::open("/dev/full").error(), std::errc::not_supported);
    EXPECT_EQ(Journal::open(folder.path()).error(), std::errc::is_a_directory);
    EXPECT_EQ(Journal::open(folder / "no/file").error(), std::errc::no_such_file_or_directory);
}
