#include "SkinKit/Tooling/Gallery/SkinGallery.h"

#include "SkinKit/Graphics/PNGWriter.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "tests/support/Collection.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace SkinKit;
namespace fs = std::filesystem;
using support::bytes;

namespace {

class Gallery : public testing::Test {
protected:
    void addSkins(std::size_t count) const
    {
        support::writeCollection(folder / "skins", {support::SkinBuilder().allSheets().zip()},
                                 count);
    }
    auto make(std::string_view skins = "skins", std::string_view out = "out",
              std::int64_t scale = 1) const
    {
        return SkinGallery::make(folder / skins, folder / out, scale, {});
    }
    bool contains(std::string_view file, std::string_view text) const
    {
        return asText(support::readFile(folder / file)).contains(text);
    }

    const support::TemporaryFolder folder;
};

}

TEST_F(Gallery, HasAPictureAndAPageForEachSkinInOrder)
{
    addSkins(30);
    folder.write("skins/a broken one.zip", bytes("no archive"));
    std::vector<std::int64_t> steps, expectedSteps;
    for (std::int64_t i = 0; i <= 31; ++i)
        expectedSteps.push_back(i);
    const auto advance = [&](std::int64_t done, std::int64_t) { steps.push_back(done); };
    EXPECT_EQ(SkinGallery::make(folder / "skins", folder / "b/out", 2, {advance}),
              (SkinGallery::Totals{.skins = 31, .refused = 1}));
    EXPECT_EQ(steps, expectedSteps);

    const std::string page(asText(support::readFile(folder / "b/out/index.html")));
    EXPECT_TRUE(page.contains("<title>skins</title>"));
    std::size_t at = 0;
    for (const std::string path : {"0/0.wsz", "0/1.wsz", "0/10.wsz", "0/9.wsz", "a broken one.zip"})
        EXPECT_NE(at = page.find("<p class=\"path\">" + path + "</p>", at), page.npos) << path;
    const auto skin = SkinParser::parse(folder / "skins/0/0.wsz").value();
    EXPECT_EQ(
        PNGWriter::read(folder / "b/out/pictures/1.png"),
        MainWindowRenderer::render(skin, MainWindowState::webampScreenshot(), 2, Clip::toRegion));
    EXPECT_FALSE(fs::exists(folder / "b/out/pictures/31.png"));
    EXPECT_TRUE(contains("b/out/previews/31.html", "Can't preview a broken one"));
}

TEST_F(Gallery, FailsWhereItCantReadOrWrite)
{
    addSkins(8);
    folder.write("file", {});
    const auto error = [&](auto... where) { return make(where...).error().description; };
    EXPECT_EQ(error("missing"), (folder / "missing").string() + ": No such file or directory");
    EXPECT_FALSE(fs::exists(folder / "out"));
    EXPECT_EQ(error(".", "out", 1'000'000'000), "a picture can't be 1000000000 times as large");
    EXPECT_EQ(error("skins", "file"), (folder / "file/pictures").string() + ": Not a directory");
}

TEST_F(Gallery, ReplacesAndDeletesNothingButItsOwnFiles)
{
    addSkins(3);
    for (const auto* name : {"out/pictures", "out/previews"})
        fs::create_directories(folder / name);
    folder.write("out/pictures/4.png", bytes("no number of this gallery"));
    for (const std::string name : {"out/index.html", "out/pictures/3.png", "out/previews/1.html"}) {
        folder.write(name, bytes("<html><head><title>mine"));
        EXPECT_EQ(make().error().description,
                  (folder / name).string() + ": exists and was not made by skintool gallery");
        EXPECT_TRUE(contains(name, "mine"));
        fs::remove(folder / name);
    }
    fs::create_symlink("../../skins/0/0.wsz", folder / "out/pictures/1.png");
    EXPECT_FALSE(make());
    fs::remove(folder / "out/pictures/1.png");

    ASSERT_TRUE(make());
    fs::copy_file(folder / "out/pictures/1.png", folder / "out/pictures/mine.png");
    fs::remove(folder / "skins/0/2.wsz");
    folder.write("skins/0/1.wsz", bytes("no archive"));
    ASSERT_TRUE(make());
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(folder / "out"))
        if (entry.is_regular_file())
            names.push_back(entry.path().lexically_relative(folder / "out"));
    std::ranges::sort(names);
    EXPECT_EQ(names, (std::vector<std::string>{"index.html", "pictures/1.png", "pictures/4.png",
                                               "pictures/mine.png", "previews/1.html",
                                               "previews/2.html"}));
}
