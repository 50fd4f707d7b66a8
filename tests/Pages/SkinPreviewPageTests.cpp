#include "SkinKit/Pages/SkinPreviewPage.h"

#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Graphics/PNGCodec.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/Table.h"
#include "tests/support/TemporaryFolder.h"

using namespace SkinKit;
using support::SkinBuilder;
using support::TemporaryFolder;

namespace {

std::optional<std::string> readmeOf(std::string_view content)
{
    return SkinPreviewPage::readme(SkinBuilder().text("readme.txt", content).archive());
}

}

TEST(SkinPreviewPage, ShowsNamePictureWarningsAndReadme)
{
    const TemporaryFolder folder;
    const auto builder = SkinBuilder()
                             .allSheets()
                             .without("cbuttons.bmp")
                             .file("titlebar.bmp", support::bytes("no picture"))
                             .text("region.txt", "[Normal]\nNumPoints=3\nPointList=0,0 9,0 9,9")
                             .text("readme.txt", "</pre><b class=\"x\">&amp; 'é'");
    const auto page = SkinPreviewPage::make(folder.write("<A> & \"B\" 'é'.1.wsz", builder.zip()));

    EXPECT_EQ(page.html, R"(<!doctype html>
<html><head><meta charset="utf-8"><title>&lt;A&gt; &amp; &quot;B&quot; 'é'.1</title>
<style>
body { font: 13px -apple-system, sans-serif; margin: 20px; color: #222; background: #fff; }
h1 { font-size: 17px; margin: 0 0 12px; }
img { display: block; margin-bottom: 12px; }
pre { white-space: pre-wrap; font: 12px ui-monospace, Menlo, monospace; }
.warnings { color: #a15c00; }
@media (prefers-color-scheme: dark) { body { color: #ddd; background: #1e1e1e; } )"
                         R"(.warnings { color: #e0a040; } }
</style></head><body>
<h1>&lt;A&gt; &amp; &quot;B&quot; 'é'.1</h1>
<img src="cid:main" width="550" height="232" style="image-rendering: pixelated" alt="">
<ul class="warnings">
<li>Undecodable titlebar.bmp</li>
<li>Missing cbuttons.bmp</li>
</ul>
<pre>&lt;/pre&gt;&lt;b class=&quot;x&quot;&gt;&amp;amp; 'é'</pre>
</body></html>)");
    ASSERT_EQ(page.attachments.size(), 1U);
    EXPECT_EQ(
        PNGCodec::decode(page.attachments.at("main"), {.maxSide = 1100, .maxPixels = 510'400}),
        MainWindowRenderer::render(*builder.parse(), MainWindowState::idle(), 4, Clip::none));
}

TEST(SkinPreviewPage, ReportsWhyASkinCannotBeShown)
{
    const TemporaryFolder folder;
    const auto page =
        SkinPreviewPage::make(folder.write("A & <B>.wsz", support::bytes("not a zip")));
    EXPECT_TRUE(page.html.ends_with("<body>\n<h1>Can't preview A &amp; &lt;B&gt;</h1>\n"
                                    "<p>Unreadable archive: Not a zip archive</p>\n"
                                    "</body></html>"))
        << page.html;
    EXPECT_TRUE(page.attachments.empty());
    EXPECT_TRUE(SkinPreviewPage::failure("a.wsz", "<1>").html.contains("<p>&lt;1&gt;</p>"));
    std::filesystem::create_directory(folder / "my.skin");
    for (const auto& [name, title] : {
             std::pair{"my.skin/.", "my"    },
             {"none",      "none"  },
             {".wsz",      ".wsz"  },
             {"\xFF.wsz",  "\uFFFD"}
    })
        EXPECT_EQ(SkinPreviewPage::failure(folder / name, "").title, title);
}

// clang-format off
TEST(SkinPreviewPage, ChoosesTheReadmeAmongTheTextsThatAreNotOfTheFormat)
{
    const auto chosen = [](const std::vector<std::string>& names) {
        SkinArchive::Table files;
        for (const auto& name : names)
            files.emplace(name, support::bytes(Unicode::lowercased(name)));
        return SkinPreviewPage::readme(SkinArchive(files));
    };
    support::expectTable<std::vector<std::string>, std::optional<std::string>>(chosen, {
        {{"pledit.txt", "viscolor.txt", "region.txt"},       {}},
        {{"readme", "readme.txt.bmp", "readme.xml"},         {}},
        {{"about.txt", "readme.txt", "zebra.txt"},           "readme.txt"},
        {{"b.txt", "a.txt", "areadme.txt"},                  "a.txt"},
        {{"readme2.txt", "readme.txt", "readme-german.txt"}, "readme-german.txt"},
        {{"About.txt", "Readme.TXT"},                        "readme.txt"},
        {{".txt", "pledit.txt"},                             ".txt"},
    });
}

TEST(SkinPreviewPage, ReadsTheReadmeAsUTF8OrElseAsWindowsText)
{
    const std::string whole(20480, 'a');
    const auto upTo = [&](std::size_t count) { return whole.substr(0, count); };
    support::expectTable<std::string, std::optional<std::string>>(readmeOf, {
        {"Gr\u00FC\u00DFe \u20AC", "Gr\u00FC\u00DFe \u20AC"},
        {"\u00FC \xFC\x80",       "\u00C3\u00BC \u00FC\u20AC"}, // one wrong byte changes all
        {"\xFC \x81",             {}},                           // undefined there
        {"",                       {}},
        {whole,                    whole},
        {whole + "a",              whole + "…"}, // cut between characters
        {upTo(20477) + "🎵",       upTo(20477) + "…"},
        {upTo(20474) + "\uFFFD\uFFFDb", upTo(20474) + "…"},
        {upTo(20478) + "\x80",     upTo(20478) + "…"}, // the text's length counts
    });
    // The chosen file counts, even an empty one.
    EXPECT_FALSE(SkinPreviewPage::readme(
        SkinBuilder().text("about.txt", "x").text("readme.txt", "").archive()));
}
// clang-format on
