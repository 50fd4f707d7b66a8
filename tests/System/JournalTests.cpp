#include "SkinKit/System/Journal.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <functional>

using namespace SkinKit;
namespace fs = std::filesystem;
using support::bytes;

namespace {

class JournalTest : public testing::Test {
protected:
    std::string text(std::string_view name) const
    {
        return std::string(asText(support::readFile(folder / name)));
    }
    const support::TemporaryFolder folder;
    const fs::path path = folder / "file";
};

}

TEST_F(JournalTest, AddsNothingToAFileThatNoLongerHasItsName)
{
    const std::function<void()> rows[] = {
        [&] { fs::remove(path); },
        [&] { fs::rename(path, folder / "away"); },
        [&] { fs::rename(folder.write("new", {}), path); },
    };
    for (const auto& disturb : rows) {
        auto journal = Journal::open(path);
        EXPECT_FALSE(journal->append("one"));
        disturb();
        EXPECT_EQ(journal->append("two"), std::errc::no_such_file_or_directory);
    }
    EXPECT_EQ(text("away"), "one\n");
}

TEST_F(JournalTest, TakesAnotherName)
{
    const auto other = folder.write("other", bytes("old\n"));
    auto journal = Journal::open(path);
    EXPECT_FALSE(journal->append("one"));
    EXPECT_FALSE(journal->rename(other));
    EXPECT_FALSE(journal->append("two"));
    EXPECT_EQ(text("other"), "one\ntwo\n");
    EXPECT_EQ(Journal::open(other).error(), std::errc::device_or_resource_busy);

    fs::create_hard_link(other, path); // another name of the same file
    EXPECT_FALSE(journal->rename(path));
    EXPECT_FALSE(fs::exists(other));
    EXPECT_EQ(text("file"), "one\ntwo\n");
}

TEST_F(JournalTest, OpensOnlyRegularFilesAndWithoutWaiting)
{
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(Journal::open(path).error(), std::errc::not_supported);
    EXPECT_EQ(Journal::open(folder.path()).error(), std::errc::is_a_directory);
    EXPECT_EQ(Journal::open(folder / "no/file").error(), std::errc::no_such_file_or_directory);
}
