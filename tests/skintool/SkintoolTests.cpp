#include "tests/skintool/Skintool.h"
#include "tests/support/ZipWriter.h"

#include "SkinKit/Graphics/PNGWriter.h"
#include "SkinKit/Pages/PreviewDocument.h"
#include "SkinKit/Tooling/CommandLine/CorpusOptions.h"
#include "SkinKit/Tooling/CommandLine/SkintoolOptions.h"
#include "SkinKit/Version.h"
#include "SkinKit/Windows/Desktop/DesktopRenderer.h"
#include "SkinKit/Windows/Equalizer/EQWindowRenderer.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowRenderer.h"

using namespace SkinKit;
namespace fs = std::filesystem;
using support::bytes;
using support::SkinBuilder;

namespace {

// A skin with a region for each window.
SkinBuilder cutSkin()
{
    return SkinBuilder().allSheets().text(
        "region.txt", "[Normal]\nNumPoints=4\nPointList=0,0 9,0 9,9 0,9\n"
                      "[WindowShade]\nNumPoints=4\nPointList=0,0 5,0 5,9 0,9\n"
                      "[Equalizer]\nNumPoints=4\nPointList=0,0 7,0 7,9 0,9\n"
                      "[EqualizerWS]\nNumPoints=4\nPointList=0,0 8,0 8,9 0,9\n");
}

ByteBuffer modernSkin()
{
    return SkinBuilder().allSheets().text("skin.xml", "").zip();
}

}

TEST_F(SkintoolTest, PrintsHelpVersionAndUsageErrorsForEveryForm)
{
    const std::string versionLine = "skintool " + std::string(version) + "\n";
    // clang-format off
    const struct { std::string form, wrong, error; std::string_view usage; } rows[] = {
        {"",              "",            "missing <skin.wsz | folder>", SkintoolOptions::usage},
        {"",              " --scale 2 a",
         "--state, --scale, --compare and --no-region need --png",     SkintoolOptions::usage},
        {"",              " a --bad\x1B\u202E\U000E0041",
         "unknown option: --bad\\x1B\\u202E\\U000E0041",                SkintoolOptions::usage},
        {"",              " a --help",   "unknown option: --help",      SkintoolOptions::usage},
        {"info",          "",            "missing <skin.wsz | folder>", InfoOptions::usage},
        {"windows",       " a",          "missing --out <dir>",         WindowsOptions::usage},
        {"preview",       "",            "missing <skin.wsz | folder>", PreviewOptions::usage},
        {"gallery",       "",            "missing <dir>",               GalleryOptions::usage},
        {"corpus",        "",            "missing <dir>",               CorpusOptions::usage},
        {"corpus-report", " r --json s",          "missing --markdown <report.md>",
         CorpusReportOptions::usage},
    };
    // clang-format on
    for (const auto& [form, wrong, error, usage] : rows) {
        EXPECT_EQ(skintool(form + wrong), failure(error + "\n" + std::string(usage)));
        EXPECT_EQ(skintool(form + " --version").out, versionLine);
        for (const auto* option : {" -h", " --help"}) {
            const auto help = skintool(form + option);
            EXPECT_TRUE(help.status == 0 && help.err.empty() && help.out.starts_with(usage))
                << help;
        }
    }
}

TEST_F(SkintoolTest, SummarisesASkinAndItsNotesOnRequest)
{
    write("lacking.wsz", SkinBuilder()
                             .sheet("main.bmp", support::solidImage({275, 116}, {1, 2, 3}))
                             .text("pledit.txt", "[Text]\nNormal=\x1B[31m\xFF\n")
                             .zip());
    EXPECT_EQ(skintool("skin.wsz").out,
              "skin.wsz: 16 sheets found, 0 generated; 16 of 16 entries kept; "
              "main window complete\n");
    const auto outcome = skintool("-v lacking.wsz");
    EXPECT_EQ(outcome, (Outcome{0, outcome.out, ""}));
    EXPECT_TRUE(outcome.out.starts_with("lacking.wsz: 1 sheet found, 11 generated; 2 of 2 entries "
                                        "kept; main window incomplete (9 of 10 required sprites "
                                        "missing)\nwarning: Missing cbuttons.bmp\n"))
        << outcome;
    EXPECT_TRUE(
        outcome.out.ends_with("fallback: pledit.txt normal '\\x1B[31m\uFFFD' unusable; default\n"))
        << outcome;

    write("locked.wsz",
          support::ZipWriter{}
              .add({.name = "main.bmp", .data = bytes("x"), .flags = 1})
              .add("text.bmp", support::encodeBMP(support::solidImage({155, 18}, {}), 8))
              .bytes());
    EXPECT_EQ(skintool("locked.wsz").err,
              "skintool: files left out because they are encrypted: 1\n");
}

TEST_F(SkintoolTest, RendersArchivesAndFoldersAsTheLibraryDoes)
{
    write("cut.wsz", cutSkin().zip());
    cutSkin().unpack("unpacked");
    const auto skin = *cutSkin().parse();
    // clang-format off
    const auto webamp = std::pair(MainWindowState::webampScreenshot(),
                                  DesktopState::webampScreenshot());
    const auto idle = std::pair(MainWindowState::idle(), DesktopState::idle());
    const std::tuple<std::string, decltype(webamp), int, Clip> rows[] = {
        {"cut.wsz",                         webamp, 1, Clip::toRegion},
        {"unpacked/ --no-region --scale 2", webamp, 2, Clip::none},
        {"cut.wsz --state idle",            idle,   1, Clip::toRegion},
    };
    // clang-format on
    for (const auto& [line, states, scale, clip] : rows) {
        const auto& [main, state] = states;
        EXPECT_EQ(skintool("--png out.png " + line), silence());
        EXPECT_EQ(PNGWriter::read("out.png"), MainWindowRenderer::render(skin, main, scale, clip));

        EXPECT_EQ(skintool("windows --out made/for/it/ " + line), silence());
        auto shaded = state;
        shaded.main.shaded = shaded.equalizer.shaded = shaded.playlist.shaded = true;
        const auto draw = [&]<typename Renderer>(const Renderer&, const auto& of) {
            return Renderer::render(skin, of, scale, clip);
        };
        using MainWindow = MainWindowRenderer;
        const std::pair<const char*, Image> expected[] = {
            {"main.png",            draw(MainWindow(),             state.main)      },
            {"main-shade.png",      draw(MainWindow(),             shaded.main)     },
            {"equalizer.png",       draw(EQWindowRenderer(),       state.equalizer) },
            {"equalizer-shade.png", draw(EQWindowRenderer(),       shaded.equalizer)},
            {"playlist.png",        draw(PlaylistWindowRenderer(), state.playlist)  },
            {"playlist-shade.png",  draw(PlaylistWindowRenderer(), shaded.playlist) },
            {"all.png",             draw(DesktopRenderer(),        state)           },
        };
        for (const auto& [name, image] : expected)
            EXPECT_EQ(PNGWriter::read(fs::path("made/for/it") / name), image) << name;
        EXPECT_EQ(countFiles("made/for/it"), std::ssize(expected));
    }
}

TEST_F(SkintoolTest, FailsWithOneLineAndLeavesEveryFileAlone)
{
    write("old.png", bytes("old"));
    write("bad\x1B.wsz", bytes("not a zip"));
    write("modern.wsz", modernSkin());
    write("empty.wsz", SkinBuilder().text("a.txt", "a").zip());
    const auto filesBefore = countFiles(".");
    const std::string noZip = "bad\\x1B.wsz: Unreadable archive: Not a zip archive";
    const std::string noFile = ": No such file or directory";
    // clang-format off
    const std::pair<std::string, std::string> rows[] = {
        {"--png old.png bad\x1B.wsz",           noZip},
        {"--png old.png none",                  "none: Unreadable archive" + noFile},
        {"--png old.png modern.wsz",
         "modern.wsz: Modern (Winamp 3/5) skin; not supported"},
        {"--png new.png empty.wsz",             "empty.wsz: No classic skin bitmaps found"},
        {"--png new.png skin.wsz --scale 130",  "--scale 130 is too large"},
        {"--png old.png skin.wsz --scale 9223372036854775807",
         "--scale 9223372036854775807 is too large"},
        {"--png none/out.png skin.wsz",         "none/out.png" + noFile},
        {"--png /dev/full skin.wsz",            "/dev/full: No space left on device"},
        {"info none",                           "none: Unreadable archive" + noFile},
        {"windows bad\x1B.wsz --out out",       noZip},
        // All windows together are too large; and before the skin is read.
        {"windows skin.wsz --out out --scale 100", "--scale 100 is too large"},
        {"windows none --out out --scale 9999999999", "--scale 9999999999 is too large"},
        {"windows skin.wsz --out old.png",      "old.png: Not a directory"},
        {"preview typo.wsz",                    "typo.wsz: Unreadable archive" + noFile},
        {"preview /",                           "/: has no name; --out says where the page goes"},
        {"preview skin.wsz --out none/page",    "none/page" + noFile},
        {"preview skin.wsz --out /dev/full",    "/dev/full: No space left on device"},
        {"corpus none --out out",               "none" + noFile},
    };
    // clang-format on
    for (const auto& [line, error] : rows)
        EXPECT_EQ(skintool(line), failure(error));
    EXPECT_EQ(skintool("--png old.png skin.wsz", 100), failure("old.png: File too large"));
    EXPECT_EQ(countFiles("."), filesBefore);
    EXPECT_EQ(read("old.png"), "old");
    EXPECT_EQ(skintool("windows skin.wsz --out out", 100), failure("out/main.png: File too large"));
    EXPECT_EQ(countFiles("out"), 0);
}

TEST_F(SkintoolTest, ComparesWithTheReferenceAndMarksWhatDiffers)
{
    const auto compare = [](const std::string& more = {}) {
        return skintool("--compare refs --png out.png skin.wsz " + more);
    };
    fs::create_directory("refs");
    EXPECT_EQ(compare().status, 2); // no reference
    skintool("--png refs/skin.png skin.wsz");
    const auto other = compare("--state idle");
    EXPECT_EQ(other.status, 1);
    EXPECT_TRUE(other.out.starts_with("compared: 31900\ndiffering: ")) << other;
    const auto marked = PNGWriter::read("out.diff.png");
    EXPECT_EQ(marked.value().pixel({48, 26}), packPixel(255, 0, 255)); // a digit
    EXPECT_EQ(compare(), (Outcome{0,
                                  "compared: 31900\ndiffering: 0\nbeyondTolerance: 0\n"
                                  "skippedTransparent: 0\ndifferingOutsideIgnored: 0\n"
                                  "beyondToleranceOutsideIgnored: 0\n",
                                  ""}));
    EXPECT_FALSE(fs::exists("out.diff.png")); // the earlier run's is gone
    EXPECT_EQ(bytes(skintool("-v --png /dev/stdout skin.wsz").out), bytes(read("out.png")));
    EXPECT_EQ(skintool("--compare refs --png /dev/stdout skin.wsz").status, 2);

    write("refs/skin.png", bytes("no picture"));
    EXPECT_EQ(compare(), failure("refs/skin.png: no readable reference picture"));
    ASSERT_FALSE(PNGWriter::write(*SkinRegion::maskImage({}, {275, 116}, 1), "refs/skin.png"));
    const auto nothing = compare();
    EXPECT_EQ(nothing, (Outcome{2, nothing.out, "skintool: refs/skin.png: no pixel to compare\n"}));
    EXPECT_TRUE(nothing.out.starts_with("compared: 0\n"));

    SkinBuilder().allSheets().unpack("v1.2");
    fs::create_symlink("skin.wsz", "alias.wsz");
    // clang-format off
    const std::pair<std::string, std::string> rows[] = { // the input, and its reference's name
        {"alias.wsz", "alias"}, {"v1.2", "v1.2"}, {"v1.2/", "v1.2"}, {"v1.2/.", "v1.2"}};
    // clang-format on
    for (const auto& [input, name] : rows) {
        skintool("--png refs/" + name + ".png " + input);
        EXPECT_EQ(skintool("--compare refs --png out.png " + input).status, 0) << input;
        fs::remove("refs/" + name + ".png");
    }
}

TEST_F(SkintoolTest, TellsEverythingAboutASkinAsTextAndAsJSON)
{
    write("lacking.wsz", cutSkin().without("posbar.bmp").zip());
    const auto text = skintool("info lacking.wsz");
    const auto json = skintool("info --json lacking.wsz");
    EXPECT_EQ(text.status + json.status, 0);
    for (const auto* line :
         {"  MAIN              275 x 116\n", "  POSBAR            307 x 10, generated\n",
          "  MAIN_POSITION_SLIDER_BACKGROUND\n",
          "  normal            1 polygon, 4 points, from 0, 0 to 9, 9\n",
          "  font              Arial\n"})
        EXPECT_TRUE(text.out.contains(line)) << line << text;
    for (const auto* part : {R"("status": "partial")", R"("leftOut": 0)", R"("bottom": 9)",
                             "\"missingSprites\": [\n    \"MAIN_POSITION_SLIDER_BACKGROUND\"\n  ]"})
        EXPECT_TRUE(json.out.contains(part)) << part << json;
}

TEST_F(SkintoolTest, WritesAPreviewPageNamedAfterTheSkinIntoTheCurrentFolder)
{
    SkinBuilder().allSheets().text("readme.txt", "Hello").unpack("v1.2");
    for (const auto* arguments :
         {"skin.wsz", "--mhtml skin.wsz", "v1.2/.", "v1.2 --mhtml --out page"})
        EXPECT_EQ(skintool("preview " + std::string(arguments)), silence());
    const auto page = SkinPreviewPage::make("skin.wsz");
    EXPECT_EQ(read("skin.html"), PreviewDocument::html(page));
    EXPECT_EQ(read("skin.mhtml"), PreviewDocument::mhtml(page));
    const auto folderPage = SkinPreviewPage::make("v1.2");
    EXPECT_TRUE(folderPage.html.contains("<pre>Hello</pre>"));
    EXPECT_EQ(read("v1.2.html"), PreviewDocument::html(folderPage));
    EXPECT_EQ(read("page"), PreviewDocument::mhtml(folderPage));

    write("modern.wsz", modernSkin());
    const std::string error = "Modern (Winamp 3/5) skin; not supported";
    EXPECT_EQ(skintool("preview modern.wsz"), failure("modern.wsz: " + error));
    EXPECT_EQ(read("modern.html"), SkinPreviewPage::failure("modern.wsz", error).html);
}
