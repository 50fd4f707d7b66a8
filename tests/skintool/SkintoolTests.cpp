#include "SkinKit/QuickLook/PreviewDocument.h"
#include "SkinKit/Rendering/DesktopRenderer.h"
#include "SkinKit/Rendering/EQWindowRenderer.h"
#include "SkinKit/Rendering/MainShadeRenderer.h"
#include "SkinKit/Rendering/MainWindowRenderer.h"
#include "SkinKit/Rendering/PNGWriter.h"
#include "SkinKit/Rendering/PlaylistWindowRenderer.h"
#include "SkinKit/Tooling/InfoOptions.h"
#include "SkinKit/Tooling/PreviewOptions.h"
#include "SkinKit/Tooling/SkintoolOptions.h"
#include "SkinKit/Tooling/WindowsOptions.h"
#include "SkinKit/Version.h"
#include "tests/support/Program.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ZipWriter.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <map>

using namespace SkinKit;
using support::bytes;
using support::Outcome;
using support::SkinBuilder;
using support::TemporaryFolder;

namespace {

Outcome skintool(const std::vector<std::string>& arguments, long limitBytes = 0)
{
    return support::run(SKINTOOL_PROGRAM, arguments, limitBytes);
}

class Skintool : public testing::Test {
protected:
    std::string path(std::string_view name) const { return (folder / name).string(); }
    std::vector<std::string> filesInFolder() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }

    const TemporaryFolder folder;
    const std::string skin = folder.write("skin.wsz", SkinBuilder().allSheets().zip()).string();
};

}

TEST_F(Skintool, PrintsHelpAndVersionForEveryForm)
{
    struct Row {
        std::vector<std::string> arguments;
        std::string_view begin;
    };
    const Row rows[] = {
        {{"--help"},               SkintoolOptions::usage},
        {{"-h"},                   SkintoolOptions::usage},
        {{"info", "--help"},       InfoOptions::usage    },
        {{"info", "-h"},           InfoOptions::usage    },
        {{"--version"},            "skintool "           },
        {{"info", "--version"},    "skintool "           },
        {{"windows", "--help"},    WindowsOptions::usage },
        {{"windows", "--version"}, "skintool "           },
        {{"preview", "--help"},    PreviewOptions::usage },
        {{"preview", "--version"}, "skintool "           },
    };
    for (const auto& row : rows) {
        const auto outcome = skintool(row.arguments);
        EXPECT_EQ(outcome.status, 0) << row.arguments.front();
        EXPECT_TRUE(outcome.out.starts_with(row.begin)) << outcome.out;
        EXPECT_EQ(outcome.err, "");
    }
    EXPECT_EQ(skintool({"--version"}).out, "skintool " + std::string(version) + "\n");
}

TEST_F(Skintool, TellsAUsageErrorWithTheUsageTextAndStatus2)
{
    for (const auto& [arguments, error] :
         std::vector<std::pair<std::vector<std::string>, std::string>>{
             {{},                     "missing <skin.wsz | folder>"                           },
             {{"--scale", "2", skin}, "--state, --scale, --compare and --no-region need --png"},
             {{skin, "--bad\x1B\n"},  "unknown option: --bad\\x1B\\n"                         },
             {{skin, "--help"},       "unknown option: --help"                                }, // only as the first word
    }) {
        const auto outcome = skintool(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err,
                  "skintool: " + error + "\n" + std::string(SkintoolOptions::usage) + "\n");
    }
    EXPECT_EQ(skintool({"info"}).err,
              "skintool: missing <skin.wsz | folder>\n" + std::string(InfoOptions::usage) + "\n");
    EXPECT_EQ(skintool({"windows", skin}).err,
              "skintool: missing --out <dir>\n" + std::string(WindowsOptions::usage) + "\n");
    EXPECT_EQ(skintool({"preview"}).err, "skintool: missing <skin.wsz | folder>\n" +
                                             std::string(PreviewOptions::usage) + "\n");
}

TEST_F(Skintool, SummarisesASkinAndItsNotesOnRequest)
{
    const auto lacking = folder.write(
        "lacking.wsz", SkinBuilder()
                           .sheet("main.bmp", support::solidImage({275, 116}, {1, 2, 3}))
                           .text("pledit.txt", "[Text]\nNormal=\x1B[31m\xFF\n")
                           .zip());
    EXPECT_EQ(skintool({skin}).out, skin + ": 16 sheets found, 0 generated; 16 of 16 entries kept; "
                                           "main window complete\n");
    const auto outcome = skintool({"-v", lacking.string()});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(outcome.out.starts_with(lacking.string() +
                                        ": 1 sheet found, 11 generated; 2 of 2 entries kept; "
                                        "main window incomplete (9 of 10 required sprites "
                                        "missing)\nwarning: Missing cbuttons.bmp\n"))
        << outcome.out;
    EXPECT_TRUE(
        outcome.out.ends_with("fallback: pledit.txt normal '\\x1B[31m\uFFFD' unusable; default\n"))
        << outcome.out;
}

TEST_F(Skintool, RendersWhatTheLibraryRenders)
{
    const auto outcome =
        skintool({"--png", path("out.png"), "--scale", "3", "--state", "idle", skin});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out + outcome.err, "");
    const auto picture = PNGWriter::read(path("out.png"));
    ASSERT_TRUE(picture);
    EXPECT_EQ(*picture, MainWindowRenderer::render(*SkinBuilder().allSheets().parse(),
                                                   MainWindowState::idle(), 3,
                                                   MainWindowRenderer::Clip::toRegion));
}

TEST_F(Skintool, ClipsToTheRegionUnlessToldNot)
{
    const auto cut = folder.write("cut.wsz", SkinBuilder()
                                                 .allSheets()
                                                 .text("region.txt", "[Normal]\nNumPoints=4\n"
                                                                     "PointList=0,0 9,0 9,9 0,9\n")
                                                 .zip());
    skintool({"--png", path("cut.png"), cut.string()});
    skintool({"--png", path("whole.png"), "--no-region", cut.string()});
    EXPECT_EQ(alphaOf(PNGWriter::read(path("cut.png"))->pixel({9, 0})), 0U);
    EXPECT_EQ(alphaOf(PNGWriter::read(path("whole.png"))->pixel({9, 0})), 255U);
}

TEST_F(Skintool, ReadsAFolderLikeAnArchive)
{
    std::filesystem::create_directory(folder / "unpacked");
    const auto archive = SkinBuilder().allSheets().archive();
    for (const auto& [name, content] : archive.files())
        folder.write("unpacked/" + name, content);
    EXPECT_EQ(skintool({"--png", path("a.png"), path("unpacked") + "/"}).status, 0);
    skintool({"--png", path("b.png"), skin});
    EXPECT_EQ(support::readFile(path("a.png")), support::readFile(path("b.png")));
}

TEST_F(Skintool, RefusesASkinInOneLineAndTouchesNoOutput)
{
    folder.write("old.png", bytes("old"));
    const auto notZip = folder.write("bad\n.wsz", bytes("not a zip"));
    const auto modern =
        folder.write("modern.wsz", SkinBuilder().allSheets().text("skin.xml", "").zip());
    const auto empty = folder.write("empty.wsz", SkinBuilder().text("a.txt", "a").zip());
    const auto before = filesInFolder();
    for (const auto& [input, error] : std::vector<std::pair<std::string, std::string>>{
             {path("bad\n.wsz"), path("bad\\n.wsz") + ": Unreadable archive: Not a zip archive"  },
             {path("none"),      path("none") + ": Unreadable archive: No such file or directory"},
             {modern.string(),   modern.string() + ": Modern (Winamp 3/5) skin; not supported"   },
             {empty.string(),    empty.string() + ": No classic skin bitmaps found"              }
    }) {
        for (const auto& output : {"old.png", "new.png"}) {
            const auto outcome = skintool({"--png", path(output), input});
            EXPECT_EQ(outcome.status, 2);
            EXPECT_EQ(outcome.out, "");
            EXPECT_EQ(outcome.err, "skintool: " + error + "\n");
        }
    }
    EXPECT_EQ(filesInFolder(), before);
    EXPECT_EQ(support::readFile(path("old.png")), bytes("old"));
}

TEST_F(Skintool, LeavesNothingBehindWhenTheOutputCannotBeWritten)
{
    folder.write("old.png", bytes("old"));
    const auto before = filesInFolder();
    const auto full = skintool({"--png", path("old.png"), skin}, 100);
    EXPECT_EQ(full.status, 2);
    EXPECT_EQ(full.err, "skintool: " + path("old.png") + ": File too large\n");
    const auto missing = skintool({"--png", path("none/out.png"), skin});
    EXPECT_EQ(missing.status, 2);
    EXPECT_EQ(missing.err, "skintool: " + path("none/out.png") + ": No such file or directory\n");
    EXPECT_EQ(filesInFolder(), before);
    EXPECT_EQ(support::readFile(path("old.png")), bytes("old"));
}

TEST_F(Skintool, WritesInPlaceToWhatIsNoRegularFile)
{
    skintool({"--png", path("out.png"), skin});
    const auto outcome = skintool({"-v", "--png", "/dev/stdout", skin});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(bytes(outcome.out), support::readFile(path("out.png")));
    EXPECT_EQ(skintool({"--png", "/dev/null", skin}).status, 0);
    EXPECT_EQ(skintool({"--png", "/dev/full", skin}).err,
              "skintool: /dev/full: No space left on device\n");
}

TEST_F(Skintool, RefusesAScaleThatNoPictureCanHave)
{
    for (const auto* scale : {"130", "4000", "9223372036854775807"}) {
        const auto outcome = skintool({"--png", path("out.png"), "--scale", scale, skin});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err, std::string("skintool: --scale ") + scale + " is too large\n");
    }
}

TEST_F(Skintool, ComparesWithTheReferenceOfTheSkinsName)
{
    std::filesystem::create_directory(folder / "refs");
    skintool({"--png", path("refs/skin.png"), skin});
    const auto same = skintool({"--png", path("out.png"), "--compare", path("refs"), skin});
    EXPECT_EQ(same.status, 0);
    EXPECT_EQ(same.out, "compared: 31900\ndiffering: 0\nbeyondTolerance: 0\n"
                        "skippedTransparent: 0\ndifferingOutsideIgnored: 0\n"
                        "beyondToleranceOutsideIgnored: 0\n");
    EXPECT_FALSE(std::filesystem::exists(path("out.diff.png")));

    const auto other =
        skintool({"--png", path("out.png"), "--compare", path("refs"), "--state", "idle", skin});
    EXPECT_EQ(other.status, 1);
    EXPECT_TRUE(other.out.starts_with("compared: 31900\ndiffering: ")) << other.out;
    const auto marked = PNGWriter::read(path("out.diff.png"));
    ASSERT_TRUE(marked);
    EXPECT_EQ(marked->pixel({48, 26}), packPixel(255, 0, 255)); // a digit
}

TEST_F(Skintool, CallsAMissingOrEmptyReferenceTrouble)
{
    std::filesystem::create_directory(folder / "refs");
    const auto compare = [this] {
        return skintool({"--png", path("out.png"), "--compare", path("refs"), skin});
    };
    EXPECT_EQ(compare().status, 2);
    folder.write("refs/skin.png", bytes("no picture"));
    EXPECT_EQ(compare().err,
              "skintool: " + path("refs/skin.png") + ": no readable reference picture\n");
    ASSERT_FALSE(
        PNGWriter::write(*SkinRegion::maskImage({}, {275, 116}, 1), path("refs/skin.png")));
    const auto nothing = compare();
    EXPECT_EQ(nothing.status, 2);
    EXPECT_EQ(nothing.err, "skintool: " + path("refs/skin.png") + ": no pixel to compare\n");
    EXPECT_TRUE(nothing.out.starts_with("compared: 0\n"));
}

TEST_F(Skintool, RefusesToWriteOverTheSkinOrTheReference)
{
    std::filesystem::create_directory(folder / "refs");
    skintool({"--png", path("refs/skin.png"), skin});
    std::filesystem::create_symlink("refs/skin.png", folder / "link.png");
    const auto before = support::readFile(path("refs/skin.png"));
    for (const auto& output : {path("refs/skin.png"), path("link.png")}) {
        const auto outcome =
            skintool({"--png", output, "--compare", path("refs"), "--state", "idle", skin});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err, "skintool: " + output + ": would overwrite the reference picture\n");
    }
    EXPECT_EQ(support::readFile(path("refs/skin.png")), before);
    const auto itself = skintool({"--png", skin, skin});
    EXPECT_EQ(itself.status, 2);
    EXPECT_EQ(itself.err, "skintool: " + skin + ": is the skin itself\n");
    EXPECT_EQ(support::readFile(skin), SkinBuilder().allSheets().zip());
    EXPECT_EQ(skintool({"--png", "/dev/stdout", "--compare", path("refs"), skin}).status, 2);
}

TEST_F(Skintool, FindsTheReferenceUnderTheNameThatWasGiven)
{
    std::filesystem::create_directory(folder / "refs");
    std::filesystem::create_directory(folder / "v1.2");
    std::filesystem::create_symlink(skin, folder / "alias.wsz");
    folder.write("v1.2/main.bmp",
                 support::encodeBMP(support::solidImage({275, 116}, {9, 9, 9}), 24));
    for (const auto& [input, name] : std::vector<std::pair<std::string, std::string>>{
             {path("alias.wsz"),  "alias"},
             {path("v1.2"),       "v1.2" },
             {path("v1.2") + "/", "v1.2" },
             {path("v1.2/."),     "v1.2" }
    }) {
        skintool({"--png", path("refs/" + name + ".png"), input});
        EXPECT_EQ(skintool({"--png", path("out.png"), "--compare", path("refs"), input}).status, 0)
            << input;
        std::filesystem::remove(path("refs/" + name + ".png"));
    }
}

TEST_F(Skintool, TakesAwayTheMarkedPictureOfAnEarlierRun)
{
    std::filesystem::create_directory(folder / "refs");
    skintool({"--png", path("refs/skin.png"), skin});
    const auto compare = [this](const char* state) {
        return skintool({"--png", path("out"), "--compare", path("refs"), "--state", state, skin});
    };
    EXPECT_EQ(compare("idle").status, 1);
    EXPECT_TRUE(std::filesystem::exists(path("out.diff.png")));
    EXPECT_EQ(compare("webamp").status, 0);
    EXPECT_FALSE(std::filesystem::exists(path("out.diff.png")));
}

TEST_F(Skintool, TellsEverythingAboutASkinAsTextAndAsJSON)
{
    const auto whole = folder.write(
        "whole.wsz", SkinBuilder()
                         .allSheets()
                         .without("posbar.bmp")
                         .text("region.txt", "[Normal]\nNumPoints=3\nPointList=0,0 9,0 9,-5\n")
                         .zip());
    const auto text = skintool({"info", whole.string()});
    EXPECT_EQ(text.status, 0);
    for (const auto* line :
         {"  MAIN              275 x 116\n", "  POSBAR            307 x 10, generated\n",
          "  MAIN_POSITION_SLIDER_BACKGROUND\n",
          "  normal            1 polygon, 3 points, from 0, -5 to 9, 0\n",
          "  font              Arial\n"})
        EXPECT_TRUE(text.out.contains(line)) << line << text.out;

    const auto json = skintool({"info", "--json", whole.string()});
    EXPECT_EQ(json.status, 0);
    for (const auto* part : {R"("status": "partial")", R"("mainWindowComplete": false)",
                             R"("missingSprites": [
    "MAIN_POSITION_SLIDER_BACKGROUND"
  ])",
                             R"("origin": "generated")", R"("leftOut": 0)", R"("top": -5)"})
        EXPECT_TRUE(json.out.contains(part)) << part << json.out;
    EXPECT_EQ(skintool({"info", path("none")}).status, 2);
}

namespace {

// What `windows` must have written, by name.
std::map<std::string, Image> windowsOf(const Skin& skin, const DesktopState& state, int scale,
                                       WindowDrawing::Clip clip)
{
    auto shadedEqualizer = state.equalizer;
    shadedEqualizer.shaded = true;
    return {
        {"main.png", MainWindowRenderer::render(skin, state.main, scale, clip)},
        {"main-shade.png", MainShadeRenderer::render(skin, state.main, scale, clip)},
        {"equalizer.png", EQWindowRenderer::render(skin, state.equalizer, scale, clip)},
        {"equalizer-shade.png", EQWindowRenderer::render(skin, shadedEqualizer, scale, clip)},
        {"playlist.png", PlaylistWindowRenderer::render(skin, state.playlist, scale)},
        {"playlist-shade.png", PlaylistWindowRenderer::renderShade(skin, state.playlist, scale)},
        {"all.png", DesktopRenderer::render(skin, state, scale, clip)},
    };
}

}

TEST_F(Skintool, WritesAllWindowsIntoAFolderThatItMakes)
{
    const auto builder = SkinBuilder().allSheets().text(
        "region.txt", "[Normal]\nNumPoints=4\nPointList=0,0 9,0 9,9 0,9\n[WindowShade]\n"
                      "NumPoints=4\nPointList=0,0 5,0 5,9 0,9\n[Equalizer]\nNumPoints=4\n"
                      "PointList=0,0 7,0 7,9 0,9\n[EqualizerWS]\nNumPoints=4\n"
                      "PointList=0,0 8,0 8,9 0,9\n");
    const auto cut = folder.write("cut.wsz", builder.zip()).string();
    struct Row {
        std::vector<std::string> arguments;
        DesktopState state;
        int scale;
        WindowDrawing::Clip clip;
    };
    const Row rows[] = {
        {{},                              DesktopState::webampScreenshot(), 1, WindowDrawing::Clip::toRegion},
        {{"--scale", "2", "--no-region"},
         DesktopState::webampScreenshot(),
         2,                                                                    WindowDrawing::Clip::none    },
        {{"--state", "idle"},             DesktopState::idle(),             1, WindowDrawing::Clip::toRegion},
    };
    for (const auto& row : rows) {
        std::vector<std::string> arguments{"windows", cut, "--out", path("made/for/it")};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const auto outcome = skintool(arguments);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out + outcome.err, "");
        const auto expected = windowsOf(*builder.parse(), row.state, row.scale, row.clip);
        for (const auto& [name, image] : expected)
            EXPECT_EQ(PNGWriter::read(path("made/for/it/" + name)), image) << name;
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(path("made/for/it")), {}), 7);
    }
}

TEST_F(Skintool, RefusesWindowsOfABadSkinOrScaleBeforeMakingTheFolder)
{
    const auto bad = folder.write("bad.wsz", bytes("not a zip")).string();
    struct Row {
        std::vector<std::string> arguments;
        std::string error;
    };
    const Row rows[] = {
        {{bad},                          bad + ": Unreadable archive: Not a zip archive"},
        {{skin, "--scale", "100"},
         "--scale 100 is too large"                                                     }, // all windows together are too large
        {{bad, "--scale", "9999999999"},
         "--scale 9999999999 is too large"                                              }, // before the skin is read
    };
    for (const auto& row : rows) {
        std::vector<std::string> arguments{"windows", "--out", path("out")};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const auto outcome = skintool(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "skintool: " + row.error + "\n");
    }
    EXPECT_FALSE(std::filesystem::exists(path("out")));
}

TEST_F(Skintool, NeverWritesWindowsOverTheSkin)
{
    const auto unpacked = path("unpacked");
    std::filesystem::create_directory(unpacked);
    folder.write("unpacked/main.png", // a sheet of the skin
                 *PNGWriter::data(support::solidImage({275, 116}, {1, 2, 3})));
    const auto sheet = support::readFile(unpacked + "/main.png");
    EXPECT_EQ(skintool({"windows", unpacked + "/.", "--out", unpacked}).err,
              "skintool: " + unpacked + ": is the skin itself\n");
    EXPECT_EQ(support::readFile(unpacked + "/main.png"), sheet);

    const auto archive = folder.write("all.png", SkinBuilder().allSheets().zip()).string();
    EXPECT_EQ(skintool({"windows", archive, "--out", folder.path().string()}).err,
              "skintool: " + archive + ": is the skin itself\n");
    EXPECT_EQ(filesInFolder(), (std::vector<std::string>{"all.png", "skin.wsz", "unpacked"}));
}

TEST_F(Skintool, SaysWhereWindowsCannotBeWritten)
{
    folder.write("file", bytes("x"));
    const auto outcome = skintool({"windows", skin, "--out", path("file")});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "skintool: " + path("file") + ": Not a directory\n");
    const auto full = skintool({"windows", skin, "--out", path("out")}, 100);
    EXPECT_EQ(full.status, 2);
    EXPECT_EQ(full.err, "skintool: " + path("out/main.png") + ": File too large\n");
    EXPECT_TRUE(std::filesystem::is_empty(path("out")));
}

TEST_F(Skintool, WritesAPreviewPageNamedAfterTheSkinIntoTheCurrentFolder)
{
    std::filesystem::create_directories(folder / "v1.2");
    std::filesystem::create_directory(folder / "here");
    const auto archive = SkinBuilder().allSheets().text("readme.txt", "Hello").archive();
    for (const auto& [name, content] : archive.files())
        folder.write("v1.2/" + name, content);
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder / "here");
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"preview", "../skin.wsz"},
             {"preview", "--mhtml", "../skin.wsz"},
             {"preview", "../v1.2/"},
             {"preview", "../v1.2", "--mhtml", "--out", path("page")}
    }) {
        const auto outcome = skintool(arguments);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out + outcome.err, "");
    }
    std::filesystem::current_path(before);

    const auto page = SkinPreviewPage::make(skin);
    EXPECT_EQ(support::readFile(path("here/skin.html")), bytes(PreviewDocument::html(page)));
    EXPECT_EQ(support::readFile(path("here/skin.mhtml")), bytes(PreviewDocument::mhtml(page)));
    const auto folderPage = SkinPreviewPage::make(folder / "v1.2");
    EXPECT_TRUE(folderPage.html.contains("<pre>Hello</pre>"));
    EXPECT_EQ(support::readFile(path("here/v1.2.html")), bytes(PreviewDocument::html(folderPage)));
    EXPECT_EQ(support::readFile(path("page")), bytes(PreviewDocument::mhtml(folderPage)));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "here"), {}), 3);
}

TEST_F(Skintool, WritesAPageEvenOfASkinThatItRefuses)
{
    const auto modern =
        folder.write("modern.wsz", SkinBuilder().allSheets().text("skin.xml", "").zip()).string();
    for (const auto& [input, error] : std::vector<std::pair<std::string, std::string>>{
             {modern,       "Modern (Winamp 3/5) skin; not supported"      },
             {path("none"), "Unreadable archive: No such file or directory"},
    }) {
        const auto outcome = skintool({"preview", input, "--out", path("page.html")});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "skintool: " + input + ": " + error + "\n");
        EXPECT_EQ(support::readFile(path("page.html")),
                  bytes(SkinPreviewPage::failure(input, error).html));
    }
    const auto nameless = skintool({"preview", "/"});
    EXPECT_EQ(nameless.status, 2);
    EXPECT_EQ(nameless.err, "skintool: /: has no name; --out says where the page goes\n");
}

TEST_F(Skintool, NeverWritesAPageOverTheSkinOrAFileOfIt)
{
    std::filesystem::create_directory(folder / "unpacked");
    folder.write("unpacked/Readme.TXT", bytes("read me"));
    folder.write("unpacked/page.html", bytes("old"));
    std::filesystem::create_symlink("unpacked/Readme.TXT", folder / "link");
    struct Row {
        std::string input, out, reason;
    };
    const Row rows[] = {
        {skin,             skin,                        "is the skin itself"   },
        {path("unpacked"), path("unpacked/"),           "is the skin itself"   },
        {path("unpacked"), path("unpacked/Readme.TXT"), "is a file of the skin"},
        {path("unpacked"), path("link"),                "is a file of the skin"},
    };
    for (const auto& [input, out, reason] : rows) {
        const auto outcome = skintool({"preview", input, "--out", out});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err, "skintool: " + out + ": " + reason + "\n");
    }
    EXPECT_EQ(support::readFile(skin), SkinBuilder().allSheets().zip());
    EXPECT_EQ(support::readFile(path("unpacked/Readme.TXT")), bytes("read me"));
    skintool({"preview", path("unpacked"), "--out", path("unpacked/page.html")});
    EXPECT_NE(support::readFile(path("unpacked/page.html")), bytes("old"));
}

TEST_F(Skintool, SaysWhereAPageCannotBeWritten)
{
    const auto outcome = skintool({"preview", skin, "--out", path("none/page.html")});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "skintool: " + path("none/page.html") + ": No such file or directory\n");
    EXPECT_EQ(skintool({"preview", skin, "--out", "/dev/full"}).err,
              "skintool: /dev/full: No space left on device\n");
}
