#include "SkinKit/Base/HTMLText.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using HTMLText::Apostrophe;

TEST(HTMLText, EscapesWhatHasAMeaningInHTML)
{
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"plain é 🎵\n\t",       "plain é 🎵\n\t"                              },
        {"&lt;",                 "&amp;lt;"                                    }, // not taken as escaped already
        {"<b class=\"x\">&</b>", "&lt;b class=&quot;x&quot;&gt;&amp;&lt;/b&gt;"},
        {"\xFF<\xC3",            "\uFFFD&lt;\uFFFD"                            },
        {"Rock 'n' Roll",        "Rock 'n' Roll"                               },
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(HTMLText::escaped(text, Apostrophe::kept), expected);
    EXPECT_EQ(HTMLText::escaped("Rock 'n' Roll", Apostrophe::escaped), "Rock &#39;n&#39; Roll");
}
