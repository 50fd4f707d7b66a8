#include "SkinKit/Platform/Journal.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

using namespace SkinKit;
using support::bytes;
using support::TemporaryFolder;
using Content = Journal::Content;

namespace {

std::string textOf(const std::filesystem::path& path)
{
    return std::string(asText(support::readFile(path)));
}

}

TEST(Journal, GrowsByLinesBehindWhatIsKept)
{
    const TemporaryFolder folder;
    const auto path = folder / "file";
    EXPECT_FALSE(Journal::open(path, Content::kept)->append("one"));
    EXPECT_FALSE(Journal::open(path, Content::kept)->append(""));
    EXPECT_EQ(textOf(path), "one\n\n");
    EXPECT_FALSE(Journal::open(path, Content::emptied)->append("two"));
    EXPECT_EQ(textOf(path), "two\n");
}

TEST(Journal, ClosesALineThatWasCutOff)
{
    const TemporaryFolder folder;
    const auto path = folder.write("file", bytes("one\ntw"));
    EXPECT_FALSE(Journal::open(path, Content::kept)->append("three"));
    EXPECT_EQ(textOf(path), "one\ntw\nthree\n");
}

TEST(Journal, BelongsToOneAtATime)
{
    const TemporaryFolder folder;
    const auto path = folder.write("file", bytes("kept\n"));
    {
        const auto first = Journal::open(path, Content::kept);
        for (const auto content : {Content::kept, Content::emptied})
            EXPECT_EQ(Journal::open(path, content).error(), std::errc::device_or_resource_busy);
        EXPECT_EQ(textOf(path), "kept\n");
    }
    EXPECT_TRUE(Journal::open(path, Content::kept));
}

TEST(Journal, SaysWhenItsFileIsDeletedUnderneath)
{
    const TemporaryFolder folder;
    auto journal = Journal::open(folder / "file", Content::kept);
    EXPECT_FALSE(journal->append("one"));
    std::filesystem::remove(folder / "file");
    EXPECT_EQ(journal->append("two"), std::errc::no_such_file_or_directory);
}

TEST(Journal, RefusesWhatIsNoRegularFileWithoutWaiting)
{
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(Journal::open(folder / "pipe", Content::kept).error(), std::errc::not_supported);
    EXPECT_EQ(Journal::open("/dev/full", Content::kept).error(), std::errc::not_supported);
    EXPECT_EQ(Journal::open(folder.path(), Content::kept).error(), std::errc::is_a_directory);
    EXPECT_EQ(Journal::open(folder / "no/file", Content::kept).error(),
              std::errc::no_such_file_or_directory);
}
