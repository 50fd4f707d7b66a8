#include "SkinKit/Graphics/PNGWriter.h"
#include "SkinKit/Pages/PreviewDocument.h"
#include "SkinKit/Tooling/CommandLine/SkintoolOptions.h"
#include "SkinKit/Version.h"
#include "SkinKit/Windows/Desktop/DesktopRenderer.h"
#include "SkinKit/Windows/Equalizer/EQWindowRenderer.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowRenderer.h"
#include "tests/support/Program.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <map>

using namespace SkinKit;
using support::bytes;
using support::Outcome;
using support::SkinBuilder;
using Words = std::vector<std::string>;

namespace {

Outcome skintool(const Words& arguments, long limitBytes = 0)
{
    return support::run(SKINTOOL_PROGRAM, arguments, limitBytes);
}

Words joined(Words words, const Words& more)
{
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

Outcome trouble(const std::string& error)
{
    return {2, "", "skintool: " + error + "\n"};
}
const Outcome silence;

class Skintool : public testing::Test {
protected:
    std::string path(std::string_view name) const { return (folder / name).string(); }
    ByteBuffer read(std::string_view name) const { return support::readFile(folder / name); }
    std::vector<std::string> filesInFolder() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }
    // Compares `input` with the pictures in "refs", which stay empty until something is put there.
    Outcome compare(const Words& more = {}) const
    {
        std::filesystem::create_directory(folder / "refs");
        return skintool(joined({"--compare", path("refs"), "--png"}, more));
    }

    const support::TemporaryFolder folder;
    const std::string skin = folder.write("skin.wsz", SkinBuilder().allSheets().zip()).string();
};

// A skin with a region for each window.
SkinBuilder cutSkin()
{
    return SkinBuilder().allSheets().text(
        "region.txt", "[Normal]\nNumPoints=4\nPointList=0,0 9,0 9,9 0,9\n"
                      "[WindowShade]\nNumPoints=4\nPointList=0,0 5,0 5,9 0,9\n"
                      "[Equalizer]\nNumPoints=4\nPointList=0,0 7,0 7,9 0,9\n"
                      "[EqualizerWS]\nNumPoints=4\nPointList=0,0 8,0 8,9 0,9\n");
}

// What `windows` must have written, by name.
std::map<std::string, Image> windowsOf(const Skin& skin, const DesktopState& state, int scale,
                                       Clip clip)
{
    auto shaded = state;
    shaded.main.shaded = shaded.equalizer.shaded = shaded.playlist.shaded = true;
    return {
        {"main.png",            MainWindowRenderer::render(skin,     state.main,       scale, clip)},
        {"main-shade.png",      MainWindowRenderer::render(skin,     shaded.main,      scale, clip)},
        {"equalizer.png",       EQWindowRenderer::render(skin,       state.equalizer,  scale, clip)},
        {"equalizer-shade.png", EQWindowRenderer::render(skin,       shaded.equalizer, scale, clip)},
        {"playlist.png",        PlaylistWindowRenderer::render(skin, state.playlist,   scale, clip)},
        {"playlist-shade.png",  PlaylistWindowRenderer::render(skin, shaded.playlist,  scale, clip)},
        {"all.png",             DesktopRenderer::render(skin,        state,            scale, clip)},
    };
}

}

TEST_F(Skintool, PrintsHelpVersionAndUsageErrorsForEveryForm)
{
    const std::string versionLine = "skintool " + std::string(version) + "\n";
    EXPECT_EQ(skintool({"--version"}), (Outcome{0, versionLine, ""}));
    EXPECT_TRUE(skintool({"-h"}).out.starts_with(SkintoolOptions::usage));
    // clang-format off
    const struct { Words form, wrong; std::string error; std::string_view usage; } rows[] = {
        {{},          {},                    "missing <skin.wsz | folder>", SkintoolOptions::usage},
        {{},          {"--scale", "2", skin},
         "--state, --scale, --compare and --no-region need --png",          SkintoolOptions::usage},
        {{},          {skin, "--bad\x1B\n\u202E\U000E0041"},
         "unknown option: --bad\\x1B\\n\\u202E\\U000E0041",                 SkintoolOptions::usage},
        {{},          {skin, "--help"},      "unknown option: --help",      SkintoolOptions::usage},
        {{"info"},    {},                    "missing <skin.wsz | folder>", InfoOptions::usage},
        {{"windows"}, {skin},                "missing --out <dir>",         WindowsOptions::usage},
        {{"preview"}, {},                    "missing <skin.wsz | folder>", PreviewOptions::usage},
    };
    // clang-format on
    for (const auto& [form, wrong, error, usage] : rows) {
        EXPECT_EQ(skintool(joined(form, wrong)), trouble(error + "\n" + std::string(usage)));
        EXPECT_EQ(skintool(joined(form, {"--version"})).out, versionLine);
        const auto help = skintool(joined(form, {"--help"}));
        EXPECT_TRUE(help.status == 0 && help.err.empty() && help.out.starts_with(usage)) << help;
    }
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
    EXPECT_EQ(outcome, (Outcome{0, outcome.out, ""}));
    EXPECT_TRUE(outcome.out.starts_with(lacking.string() +
                                        ": 1 sheet found, 11 generated; 2 of 2 entries kept; "
                                        "main window incomplete (9 of 10 required sprites "
                                        "missing)\nwarning: Missing cbuttons.bmp\n"))
        << outcome;
    EXPECT_TRUE(
        outcome.out.ends_with("fallback: pledit.txt normal '\\x1B[31m\uFFFD' unusable; default\n"))
        << outcome;
}

TEST_F(Skintool, RendersArchivesAndFoldersAsTheLibraryDoes)
{
    const auto expected = [parsed = *cutSkin().parse()](const auto&... more) {
        return MainWindowRenderer::render(parsed, more...);
    };
    const auto cut = folder.write("cut.wsz", cutSkin().zip()).string();
    const auto unpacked = cutSkin().unpack(folder / "unpacked") + "/";
    const std::pair<Words, Image> rows[] = {
        {{cut},                                    expected(MainWindowState::webampScreenshot(), 1, Clip::toRegion)},
        {{unpacked, "--no-region"},                expected(MainWindowState::webampScreenshot(), 1, Clip::none)    },
        {{cut, "--scale", "3", "--state", "idle"},
         expected(MainWindowState::idle(),                                                       3, Clip::toRegion)},
    };
    for (const auto& [arguments, image] : rows) {
        EXPECT_EQ(skintool(joined({"--png", path("out.png")}, arguments)), silence);
        EXPECT_EQ(PNGWriter::read(path("out.png")), image);
    }
}

TEST_F(Skintool, RefusesInOneLineAndTouchesNoOutput)
{
    folder.write("old.png", bytes("old"));
    folder.write("bad\n.wsz", bytes("not a zip"));
    folder.write("modern.wsz", SkinBuilder().allSheets().text("skin.xml", "").zip());
    folder.write("empty.wsz", SkinBuilder().text("a.txt", "a").zip());
    const auto before = filesInFolder();
    // clang-format off
    const std::pair<Words, std::string> rows[] = {
        {{path("bad\n.wsz")},       path("bad\\n.wsz") + ": Unreadable archive: Not a zip archive"},
        {{path("none")}, path("none") + ": Unreadable archive: No such file or directory"},
        {{path("modern.wsz")}, path("modern.wsz") + ": Modern (Winamp 3/5) skin; not supported"},
        {{path("empty.wsz")},       path("empty.wsz") + ": No classic skin bitmaps found"},
        {{skin, "--scale", "130"},  "--scale 130 is too large"},
        {{skin, "--scale", "9223372036854775807"}, "--scale 9223372036854775807 is too large"},
    };
    // clang-format on
    for (const auto& [arguments, error] : rows)
        for (const auto* output : {"old.png", "new.png"})
            EXPECT_EQ(skintool(joined({"--png", path(output)}, arguments)), trouble(error));
    EXPECT_EQ(skintool({"info", path("none")}).status, 2);
    EXPECT_EQ(skintool({"--png", path("old.png"), skin}, 100),
              trouble(path("old.png") + ": File too large"));
    EXPECT_EQ(skintool({"--png", path("none/out.png"), skin}),
              trouble(path("none/out.png") + ": No such file or directory"));
    EXPECT_EQ(filesInFolder(), before);
    EXPECT_EQ(read("old.png"), bytes("old"));
}

TEST_F(Skintool, WritesInPlaceToWhatIsNoRegularFile)
{
    skintool({"--png", path("out.png"), skin});
    const auto outcome = skintool({"-v", "--png", "/dev/stdout", skin});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(bytes(outcome.out), read("out.png"));
    EXPECT_EQ(skintool({"--png", "/dev/full", skin}),
              trouble("/dev/full: No space left on device"));
}

TEST_F(Skintool, ComparesWithTheReferenceAndMarksWhatDiffers)
{
    EXPECT_EQ(compare({path("out.png"), skin}).status, 2); // no reference
    EXPECT_EQ(compare({"/dev/stdout", skin}).status, 2);
    skintool({"--png", path("refs/skin.png"), skin});
    const auto other = compare({path("out.png"), "--state", "idle", skin});
    EXPECT_EQ(other.status, 1);
    EXPECT_TRUE(other.out.starts_with("compared: 31900\ndiffering: ")) << other;
    const auto marked = PNGWriter::read(path("out.diff.png"));
    ASSERT_TRUE(marked);
    EXPECT_EQ(marked->pixel({48, 26}), packPixel(255, 0, 255)); // a digit

    EXPECT_EQ(compare({path("out.png"), skin}),
              (Outcome{0,
                       "compared: 31900\ndiffering: 0\nbeyondTolerance: 0\n"
                       "skippedTransparent: 0\ndifferingOutsideIgnored: 0\n"
                       "beyondToleranceOutsideIgnored: 0\n",
                       ""}));
    EXPECT_FALSE(std::filesystem::exists(path("out.diff.png"))); // the earlier run's is gone

    folder.write("refs/skin.png", bytes("no picture"));
    EXPECT_EQ(compare({path("out.png"), skin}),
              trouble(path("refs/skin.png") + ": no readable reference picture"));
    ASSERT_FALSE(
        PNGWriter::write(*SkinRegion::maskImage({}, {275, 116}, 1), path("refs/skin.png")));
    const auto nothing = compare({path("out.png"), skin});
    EXPECT_EQ(nothing.status, 2);
    EXPECT_EQ(nothing.err, "skintool: " + path("refs/skin.png") + ": no pixel to compare\n");
    EXPECT_TRUE(nothing.out.starts_with("compared: 0\n"));
}

TEST_F(Skintool, FindsTheReferenceUnderTheNameThatWasGiven)
{
    std::filesystem::create_directory(folder / "refs");
    SkinBuilder().allSheets().unpack(folder / "v1.2");
    std::filesystem::create_symlink(skin, folder / "alias.wsz");
    for (const auto& [input, name] : std::vector<std::pair<std::string, std::string>>{
             {"alias.wsz", "alias"},
             {"v1.2",      "v1.2" },
             {"v1.2/",     "v1.2" },
             {"v1.2/.",    "v1.2" }
    }) {
        skintool({"--png", path("refs/" + name + ".png"), path(input)});
        EXPECT_EQ(compare({path("out.png"), path(input)}).status, 0) << input;
        std::filesystem::remove(path("refs/" + name + ".png"));
    }
}

TEST_F(Skintool, TellsEverythingAboutASkinAsTextAndAsJSON)
{
    const auto lacking = folder.write("lacking.wsz", cutSkin().without("posbar.bmp").zip());
    const auto text = skintool({"info", lacking.string()});
    const auto json = skintool({"info", "--json", lacking.string()});
    EXPECT_EQ(text.status + json.status, 0);
    for (const auto* line :
         {"  MAIN              275 x 116\n", "  POSBAR            307 x 10, generated\n",
          "  MAIN_POSITION_SLIDER_BACKGROUND\n",
          "  normal            1 polygon, 4 points, from 0, 0 to 9, 9\n",
          "  font              Arial\n"})
        EXPECT_TRUE(text.out.contains(line)) << line << text;
    for (const auto* part : {R"("status": "partial")", R"("mainWindowComplete": false)",
                             "\"missingSprites\": [\n    \"MAIN_POSITION_SLIDER_BACKGROUND\"\n  ]",
                             R"("origin": "generated")", R"("leftOut": 0)", R"("bottom": 9)"})
        EXPECT_TRUE(json.out.contains(part)) << part << json;
}

TEST_F(Skintool, WritesAllWindowsIntoAFolderThatItMakes)
{
    const auto cut = folder.write("cut.wsz", cutSkin().zip()).string();
    // clang-format off
    const std::tuple<Words, DesktopState, int, Clip> rows[] = {
        {{},                              DesktopState::webampScreenshot(), 1, Clip::toRegion},
        {{"--scale", "2", "--no-region"}, DesktopState::webampScreenshot(), 2, Clip::none},
        {{"--state", "idle"},             DesktopState::idle(),             1, Clip::toRegion},
    };
    // clang-format on
    for (const auto& [arguments, state, scale, clip] : rows) {
        const auto out = path("made/for/it/");
        EXPECT_EQ(skintool(joined({"windows", cut, "--out", out}, arguments)), silence);
        const auto expected = windowsOf(*cutSkin().parse(), state, scale, clip);
        for (const auto& [name, image] : expected)
            EXPECT_EQ(PNGWriter::read(out + name), image) << name;
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(out), {}), 7);
    }
}

TEST_F(Skintool, RefusesWindowsThatCannotBeDrawnOrWritten)
{
    const auto bad = folder.write("bad.wsz", bytes("not a zip")).string();
    const auto file = folder.write("file", bytes("x")).string();
    const auto windows = [](const Words& arguments, const std::string& out, long limit = 0) {
        return skintool(joined({"windows", "--out", out}, arguments), limit);
    };
    const auto out = path("out");
    EXPECT_EQ(windows({bad}, out), trouble(bad + ": Unreadable archive: Not a zip archive"));
    // All windows together are too large; and before the skin is read.
    EXPECT_EQ(windows({skin, "--scale", "100"}, out), trouble("--scale 100 is too large"));
    EXPECT_EQ(windows({bad, "--scale", "9999999999"}, out),
              trouble("--scale 9999999999 is too large"));
    EXPECT_FALSE(std::filesystem::exists(out));

    EXPECT_EQ(windows({skin}, file), trouble(file + ": Not a directory"));
    EXPECT_EQ(windows({skin}, out, 100), trouble(path("out/main.png") + ": File too large"));
    EXPECT_TRUE(std::filesystem::is_empty(out));
}

TEST_F(Skintool, WritesAPreviewPageNamedAfterTheSkinIntoTheCurrentFolder)
{
    SkinBuilder().allSheets().text("readme.txt", "Hello").unpack(folder / "v1.2");
    std::filesystem::create_directory(folder / "here");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder / "here");
    for (const auto& arguments : {
             Words{"../skin.wsz"},
             {"--mhtml", "../skin.wsz"},
             {"../v1.2/"},
             {"../v1.2", "--mhtml", "--out", path("page")}
    })
        EXPECT_EQ(skintool(joined({"preview"}, arguments)), silence);
    std::filesystem::current_path(before);

    const auto page = SkinPreviewPage::make(skin);
    EXPECT_EQ(read("here/skin.html"), bytes(PreviewDocument::html(page)));
    EXPECT_EQ(read("here/skin.mhtml"), bytes(PreviewDocument::mhtml(page)));
    const auto folderPage = SkinPreviewPage::make(folder / "v1.2");
    EXPECT_TRUE(folderPage.html.contains("<pre>Hello</pre>"));
    EXPECT_EQ(read("here/v1.2.html"), bytes(PreviewDocument::html(folderPage)));
    EXPECT_EQ(read("page"), bytes(PreviewDocument::mhtml(folderPage)));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "here"), {}), 3);
}

TEST_F(Skintool, WritesAPageEvenOfASkinThatItRefusesAndSaysWhereItCannot)
{
    const auto modern =
        folder.write("modern.wsz", SkinBuilder().allSheets().text("skin.xml", "").zip()).string();
    const auto error = "Modern (Winamp 3/5) skin; not supported";
    EXPECT_EQ(skintool({"preview", modern, "--out", path("page.html")}),
              trouble(modern + ": " + error));
    EXPECT_EQ(read("page.html"), bytes(SkinPreviewPage::failure(modern, error).html));
    EXPECT_EQ(skintool({"preview", path("typo.wsz"), "--out", path("typo.html")}),
              trouble(path("typo.wsz") + ": Unreadable archive: No such file or directory"));
    EXPECT_FALSE(std::filesystem::exists(path("typo.html")));
    EXPECT_EQ(skintool({"preview", "/"}),
              trouble("/: has no name; --out says where the page goes"));
    EXPECT_EQ(skintool({"preview", skin, "--out", path("none/page.html")}),
              trouble(path("none/page.html") + ": No such file or directory"));
    EXPECT_EQ(skintool({"preview", skin, "--out", "/dev/full"}),
              trouble("/dev/full: No space left on device"));
}
