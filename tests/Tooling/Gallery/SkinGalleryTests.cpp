#include "SkinKit/Tooling/Gallery/SkinGallery.h"

#include "SkinKit/Graphics/PNGWriter.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "tests/support/Collection.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <map>
#include <set>
#include <vector>

using namespace SkinKit;
namespace fs = std::filesystem;
using support::bytes;
using support::TemporaryFolder;

TEST(SkinGallery, MakesAPictureAndAPageForEachSkinInOrder)
{
    const TemporaryFolder folder;
    const auto skin = support::SkinBuilder().allSheets().zip();
    support::writeCollection(folder / "skins", {skin}, 30);
    folder.write("skins/a broken one.zip", bytes("no archive"));
    std::vector<std::int64_t> steps;
    const auto totals = SkinGallery::make(folder / "skins", folder / "b/out", 2,
                                          {[&](std::int64_t done, std::int64_t total) {
                                              EXPECT_EQ(total, 31);
                                              steps.push_back(done);
                                          }});
    EXPECT_EQ(totals, (SkinGallery::Totals{.skins = 31, .refused = 1}));
    ASSERT_EQ(steps.size(), 32U);
    for (std::size_t i = 0; i < steps.size(); ++i)
        EXPECT_EQ(steps[i], static_cast<std::int64_t>(i));

    const std::string page(asText(support::readFile(folder / "b/out/index.html")));
    EXPECT_TRUE(page.contains("<title>skins</title>"));
    std::size_t at = 0;
    for (const auto* path : {"0/0.wsz", "0/1.wsz", "0/10.wsz", "0/9.wsz", "a broken one.zip"}) {
        const auto found = page.find("<p class=\"path\">" + std::string(path) + "</p>", at);
        ASSERT_NE(found, page.npos) << path;
        at = found;
    }
    const auto expected =
        MainWindowRenderer::render(*SkinParser::parse(folder / "skins/0/0.wsz"),
                                   MainWindowState::webampScreenshot(), 2, Clip::toRegion);
    EXPECT_EQ(PNGWriter::read(folder / "b/out/pictures/1.png"), expected);
    EXPECT_FALSE(fs::exists(folder / "b/out/pictures/31.png"));
    EXPECT_TRUE(asText(support::readFile(folder / "b/out/previews/31.html"))
                    .contains("Can't preview a broken one"));
}

TEST(SkinGallery, SaysWhatItCantReadOrWrite)
{
    const TemporaryFolder folder;
    const auto make = [&](std::string_view skins, std::string_view out, std::int64_t scale) {
        return SkinGallery::make(folder / skins, folder / out, scale, {}).error().description;
    };
    EXPECT_EQ(make("missing", "out", 1),
              (folder / "missing").string() + ": No such file or directory");
    EXPECT_FALSE(fs::exists(folder / "out"));
    EXPECT_EQ(make(".", "out", 1'000'000'000), "a picture can't be 1000000000 times as large");
    support::writeCollection(folder / "skins", {support::SkinBuilder().allSheets().zip()}, 8);
    folder.write("file", {});
    EXPECT_EQ(make("skins", "file", 1), (folder / "file/pictures").string() + ": Not a directory");
}

TEST(SkinGallery, ReplacesAndDeletesNothingButItsOwnFiles)
{
    const TemporaryFolder folder;
    support::writeCollection(folder / "skins", {support::SkinBuilder().allSheets().zip()}, 3);
    const auto make = [&] { return SkinGallery::make(folder / "skins", folder / "out", 1, {}); };
    const auto files = [&] {
        std::map<fs::path, ByteBuffer> contents;
        for (const auto& entry : fs::recursive_directory_iterator(folder / "out"))
            if (entry.is_regular_file())
                contents[entry.path()] = support::readFile(entry);
        return contents;
    };
    fs::create_directories(folder / "out/pictures");
    for (const auto* name : {"index.html", "pictures/3.png", "previews/1.html"}) {
        fs::create_directories((folder / "out" / name).parent_path());
        folder.write("out/pictures/4.png", bytes("no number of this gallery"));
        folder.write("out/" + std::string(name), bytes("<html><head><title>mine"));
        const auto before = files();
        EXPECT_EQ(make().error().description, (folder / "out" / name).string() +
                                                  ": exists and was not made by skintool gallery");
        EXPECT_EQ(files(), before);
        fs::remove(folder / "out" / name);
    }
    fs::create_symlink("../../skins/0/0.wsz", folder / "out/pictures/1.png");
    EXPECT_FALSE(make());
    fs::remove(folder / "out/pictures/1.png");

    ASSERT_TRUE(make());
    fs::copy_file(folder / "out/pictures/1.png", folder / "out/pictures/mine.png");
    fs::remove(folder / "skins/0/2.wsz");
    folder.write("skins/0/1.wsz", bytes("no archive"));
    ASSERT_TRUE(make());
    std::set<std::string> names;
    for (const auto& [path, content] : files())
        names.insert(path.lexically_relative(folder / "out"));
    EXPECT_EQ(names,
              (std::set<std::string>{"index.html", "pictures/1.png", "pictures/4.png",
                                     "pictures/mine.png", "previews/1.html", "previews/2.html"}));
}
