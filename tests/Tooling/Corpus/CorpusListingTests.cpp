#include "SkinKit/Tooling/Corpus/CorpusListing.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace SkinKit;
namespace fs = std::filesystem;
using support::bytes;
using support::TemporaryFolder;

namespace {

using Names = std::vector<std::string>;

Names paths(const std::vector<CorpusFile>& files)
{
    Names result;
    for (const CorpusFile& file : files)
        result.push_back(file.path);
    return result;
}

}

TEST(CorpusListing, FindsTheSkinsBelowAFolderInByteOrder)
{
    const TemporaryFolder folder;
    for (const auto* name :
         {"b.zip", "a.WSZ", ".hidden.wsz", "c.txt", "wsz", "d.wsz.txt", "e.tar.Zip", "B.wsz",
          "sub/z.wsz", "sub/.git/no.wsz", "sub.wsz/inner.zip", "sub-/x.wsz"}) {
        fs::create_directories((folder / name).parent_path());
        folder.write(name, bytes(name));
    }
    fs::create_symlink(folder / "b.zip", folder / "link.wsz");
    fs::create_directory_symlink(folder / "sub", folder / "loop");
    ASSERT_EQ(::mkfifo((folder / "pipe.wsz").c_str(), 0600), 0);

    const auto files = CorpusListing::scan(folder.path()).value().files;
    EXPECT_EQ(paths(files), (Names{"B.wsz", "a.WSZ", "b.zip", "e.tar.Zip", "sub-/x.wsz",
                                   "sub.wsz/inner.zip", "sub/z.wsz"}));
    EXPECT_EQ(files[1], (CorpusFile{.path = "a.WSZ", .size = 5}));
    EXPECT_EQ(files[3].name(), "e.tar");
    EXPECT_EQ(files[5].name(), "inner");

    fs::create_directory_symlink(folder.path(), folder / "root");
    EXPECT_EQ(CorpusListing::scan(folder / "root").value().files,
              files); // links to the folder itself are followed
}

TEST(CorpusListing, FailsForAFolderThatCantBeReadAndGoesOnBesideOneTooDeep)
{
    const TemporaryFolder folder;
    const auto skin = folder.write("a.wsz", {});
    EXPECT_EQ(CorpusListing::scan(folder / "missing").error(),
              std::errc::no_such_file_or_directory);
    EXPECT_EQ(CorpusListing::scan(skin).error(), std::errc::not_a_directory);
    // Deeper than any path that the system takes in one piece, so it is made step by step.
    const std::string name(250, 'd');
    const auto start = fs::current_path();
    fs::current_path(folder.path());
    for (int i = 0; i < 20; ++i) {
        fs::create_directory(name);
        fs::current_path(name);
    }
    fs::current_path(start);

    const auto scan = CorpusListing::scan(folder.path());
    EXPECT_EQ(paths(scan.value().files), Names{"a.wsz"});
    ASSERT_EQ(scan->unreadFolders.size(), 1U);
    EXPECT_EQ(scan->unreadFolders.front().error, std::errc::filename_too_long);
}

TEST(CorpusListing, FingerprintsWholeFiles)
{
    const TemporaryFolder folder;
    // Longer than what is read at a time.
    EXPECT_EQ(CorpusListing::md5Hex(folder.write("a", ByteBuffer(1'000'000, 'a'))),
              "7707d6ae4e027c70eea2a935c2296f21");
    EXPECT_EQ(CorpusListing::md5Hex(folder / "missing"), std::nullopt);
}

TEST(CorpusListing, IsKeptAsJSON)
{
    const CorpusFile file{.path = "a/b.wsz", .md5 = "00", .size = 5};
    const std::vector<CorpusFile> files{file, {.path = "c"}};
    EXPECT_EQ(CorpusListing::json(files),
              "[\n{\"md5\":\"00\",\"path\":\"a/b.wsz\",\"size\":5},\n{\"path\":\"c\"}\n]\n");
    EXPECT_EQ(CorpusListing::parse(CorpusListing::json(files)), files);
    for (const std::string_view text :
         {"", "{}", R"([{"path":1}])", R"([{"md5":"0"}])", R"([{"path":"a","md5":7}])",
          R"([{"path":"a","size":"7"}])", R"([{"path":"a"},7])",
          R"([{"path":"a","pathBytes":"6"}])", R"([{"path":"a","pathBytes":"6x"}])"})
        EXPECT_EQ(CorpusListing::parse(text), std::nullopt) << text;
}
