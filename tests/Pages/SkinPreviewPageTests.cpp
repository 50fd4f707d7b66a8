#include "SkinKit/Pages/SkinPreviewPage.h"

#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Graphics/PNGCodec.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using support::SkinBuilder;
using support::TemporaryFolder;

namespace {

// The page around a body; the title as it stands in the page.
std::string pageOf(const std::string& title, const std::string& body)
{
    return "<!doctype html>\n<html><head><meta charset=\"utf-8\"><title>" + title +
           "</title>\n"
           "<style>\n"
           "body { font: 13px -apple-system, sans-serif; margin: 20px; color: #222; "
           "background: #fff; }\n"
           "h1 { font-size: 17px; margin: 0 0 12px; }\n"
           "img { display: block; margin-bottom: 12px; }\n"
           "pre { white-space: pre-wrap; font: 12px ui-monospace, Menlo, monospace; }\n"
           ".warnings { color: #a15c00; }\n"
           "@media (prefers-color-scheme: dark) { body { color: #ddd; background: #1e1e1e; } "
           ".warnings { color: #e0a040; } }\n"
           "</style></head><body>\n" +
           body + "</body></html>";
}

const std::string imageLine = "<img src=\"cid:main\" width=\"550\" height=\"232\" "
                              "style=\"image-rendering: pixelated\" alt=\"\">\n";

std::optional<std::string> readmeOf(std::string_view content)
{
    return SkinPreviewPage::readme(SkinBuilder().text("readme.txt", content).archive());
}

std::string repeated(std::string_view text, std::size_t count)
{
    std::string result;
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

}

TEST(SkinPreviewPage, ShowsNamePictureWarningsAndReadme)
{
    const TemporaryFolder folder;
    const auto builder = SkinBuilder()
                             .allSheets()
                             .without("cbuttons.bmp")
                             .file("titlebar.bmp", support::bytes("no picture"))
                             .text("region.txt", "[Normal]\nNumPoints=4\n"
                                                 "PointList=0,0 9,0 9,9 0,9\n")
                             .text("readme.txt", "</pre><b class=\"x\">&amp; 'é'\x01\r\n");
    const auto page = SkinPreviewPage::make(folder.write("<A> & \"B\" 'é'.1.wsz", builder.zip()));

    EXPECT_EQ(page.title, "<A> & \"B\" 'é'.1");
    const std::string title = "&lt;A&gt; &amp; &quot;B&quot; 'é'.1";
    EXPECT_EQ(page.html,
              pageOf(title, "<h1>" + title + "</h1>\n" + imageLine +
                                "<ul class=\"warnings\">\n"
                                "<li>Undecodable titlebar.bmp</li>\n"
                                "<li>Missing cbuttons.bmp</li>\n"
                                "</ul>\n"
                                "<pre>&lt;/pre&gt;&lt;b class=&quot;x&quot;&gt;&amp;amp; "
                                "'é'\x01\r\n</pre>\n"));
    ASSERT_EQ(page.attachments.size(), 1U);
    EXPECT_EQ(
        PNGCodec::decode(page.attachments.at("main"), {.maxSide = 1100, .maxPixels = 510'400}),
        MainWindowRenderer::render(*builder.parse(), MainWindowState::idle(), 4, Clip::none));
}

TEST(SkinPreviewPage, IsNamedAfterTheFileOrFolderWithoutItsExtension)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "my.skin");
    for (const auto& [name, title] : {
             std::pair{"my.skin",   "my"    },
             {"my.skin/",  "my"    },
             {"my.skin/.", "my"    },
             {"none",      "none"  },
             {".wsz",      ".wsz"  },
             {"\xFF.wsz",  "\uFFFD"}
    })
        EXPECT_EQ(SkinPreviewPage::make(folder / name).title, title);
}

TEST(SkinPreviewPage, SaysWhyASkinCannotBeShown)
{
    const TemporaryFolder folder;
    const std::pair<ByteBuffer, std::string> rows[] = {
        {SkinBuilder().allSheets().text("skin.xml", "").zip(),
         "Modern (Winamp 3/5) skin; not supported"},
        {support::bytes("not a zip"), "Unreadable archive: Not a zip archive"},
    };
    for (const auto& [content, reason] : rows) {
        const auto page = SkinPreviewPage::make(folder.write("A & <B>.wsz", content));
        EXPECT_EQ(page.title, "A & <B>");
        EXPECT_EQ(page.html,
                  pageOf("A &amp; &lt;B&gt;",
                         "<h1>Can't preview A &amp; &lt;B&gt;</h1>\n<p>" + reason + "</p>\n"));
        EXPECT_TRUE(page.attachments.empty());
    }
    EXPECT_EQ(SkinPreviewPage::failure("a.wsz", "<1> & \"2\"").html,
              pageOf("a", "<h1>Can't preview a</h1>\n<p>&lt;1&gt; &amp; &quot;2&quot;</p>\n"));
}

TEST(SkinPreviewPage, ChoosesTheReadmeAmongTheTextsThatAreNotOfTheFormat)
{
    struct Row {
        std::vector<std::string> names;
        std::optional<std::string> chosen; // as the archive names it
    };
    const Row rows[] = {
        {{},                                                 std::nullopt       },
        {{"pledit.txt", "viscolor.txt", "region.txt"},       std::nullopt       },
        {{"readme", "readme.txt.bmp", "readme.xml"},         std::nullopt       },
        {{"about.txt", "readme.txt", "zebra.txt"},           "readme.txt"       },
        {{"b.txt", "a.txt", "areadme.txt"},                  "a.txt"            },
        {{"readme2.txt", "readme.txt", "readme-german.txt"}, "readme-german.txt"},
        {{"About.txt", "Readme.TXT"},                        "readme.txt"       },
        {{".txt", "pledit.txt"},                             ".txt"             },
        {{"region.txt", "regions.txt"},                      "regions.txt"      },
    };
    for (const auto& [names, chosen] : rows) {
        SkinArchive::Table files;
        for (const auto& name : names)
            files.emplace(name, support::bytes("I am " + Unicode::lowercased(name)));
        const auto text = SkinPreviewPage::readme(SkinArchive(files));
        EXPECT_EQ(text, chosen ? std::optional("I am " + *chosen) : std::nullopt);
    }
}

TEST(SkinPreviewPage, ReadsTheReadmeAsUTF8OrElseAsWindowsText)
{
    const std::pair<std::string_view, std::optional<std::string>> rows[] = {
        {"Gr\u00FC\u00DFe \u20AC", "Gr\u00FC\u00DFe \u20AC"},
        {"Gr\xFC\xDF"
         "e \x80",        "Gr\u00FC\u00DFe \u20AC"},
        {"\u00FC \xFC",            "\u00C3\u00BC \u00FC"   }, // one wrong byte makes all of it Windows text
        {"\xFC \x81",              std::nullopt            }, // undefined there
        {"",                       std::nullopt            },
    };
    for (const auto& [content, expected] : rows)
        EXPECT_EQ(readmeOf(content), expected);
    // The one chosen counts, even if it has nothing to show.
    EXPECT_FALSE(SkinPreviewPage::readme(
        SkinBuilder().text("about.txt", "x").text("readme.txt", "").archive()));
}

TEST(SkinPreviewPage, CutsALongReadmeBetweenCharacters)
{
    const auto r = repeated;
    const std::string whole = r("a", 20480);
    const std::pair<std::string, std::string> rows[] = {
        {whole, whole},
        {whole + "a", whole + "…"},
        {r("a", 1) + r("é", 15000), r("a", 1) + r("é", 10239) + "…"},
        {r("a", 20477) + "🎵", r("a", 20477) + "…"}, // one byte too long
        {r("a", 20474) + "\uFFFD\uFFFDb", r("a", 20474) + "…"}, // meant so, but at the end
        {r("\uFFFD", 7000), "…"},
        {r("\x80", 6826) + "ab", r("€", 6826) + "ab"}, // the text's length counts
        {r("\x80", 6827), r("€", 6826) + "…"},
    };
    for (const auto& [content, expected] : rows)
        EXPECT_EQ(readmeOf(content), expected) << content.substr(0, 4) << content.size();
}
