#include "SkinKit/Pages/SkinGalleryPage.h"

#include <gtest/gtest.h>

using namespace SkinKit;

TEST(SkinGalleryPage, ShowsEachCardWithItsTextsAsText)
{
    const auto page = SkinGalleryPage::html("<b>&",
                                            {
                                                {.name = "\"one\"",
                                                 .path = "a/<one>.wsz",
                                                 .picture = "p/1.png",
                                                 .preview = "v/1.html",
                                                 .warnings = {"<i>"},
                                                 .fallbacks = {"b"}},
                                                {.name = "two",
                                                 .path = "two.zip",
                                                 .error = "not <it>",
                                                 .picture = "p/2.png",
                                                 .preview = "v/2.html"},
    },
                                            {550, 232});
    EXPECT_TRUE(page.contains("<title>&lt;b&gt;&amp;</title>"));
    EXPECT_TRUE(
        page.contains("<h1>&lt;b&gt;&amp;</h1><span id=\"count\">2 skins, 1 refused</span>"));
    EXPECT_TRUE(page.contains(
        "<main>\n"
        "<article data-state=\"drawn\" data-notes=\"2\">\n"
        "<a href=\"v/1.html\"><img src=\"p/1.png\" width=\"550\" height=\"232\" loading=\"lazy\" "
        "alt=\"&quot;one&quot;\"></a>\n"
        "<h2><a href=\"v/1.html\">&quot;one&quot;</a></h2>\n"
        "<p class=\"path\">a/&lt;one&gt;.wsz</p>\n"
        "<details class=\"warning\"><summary>2 "
        "notes</summary>\n<ul>\n<li>&lt;i&gt;</li>\n<li>b</li>\n</ul></details>\n"
        "</article>\n"
        "<article data-state=\"refused\" data-notes=\"0\">\n"
        "<div class=\"refused\" style=\"aspect-ratio: 550 / 232\">not &lt;it&gt;</div>\n"
        "<h2><a href=\"v/2.html\">two</a></h2>\n"
        "<p class=\"path\">two.zip</p>\n"
        "</article>\n"
        "</main>\n"))
        << page;
}
