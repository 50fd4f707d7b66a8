#include "SkinKit/Display/HTMLText.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using HTMLText::Apostrophe;

TEST(HTMLText, EscapesWhatHasAMeaningInHTML)
{
    struct Row {
        std::string_view text, expected;
    };
    const Row rows[] = {
        {"",                     ""                                            },
        {"plain é 🎵\n\t",       "plain é 🎵\n\t"                              },
        {"a & b",                "a &amp; b"                                   },
        {"&lt;",                 "&amp;lt;"                                    }, // not taken as escaped already
        {"<b class=\"x\">&</b>", "&lt;b class=&quot;x&quot;&gt;&amp;&lt;/b&gt;"},
        {"\xFF<\xC3",            "\uFFFD&lt;\uFFFD"                            },
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(HTMLText::escaped(text, Apostrophe::kept), expected);
}

TEST(HTMLText, EscapesTheApostropheOnlyWhenAsked)
{
    EXPECT_EQ(HTMLText::escaped("Rock 'n' Roll", Apostrophe::kept), "Rock 'n' Roll");
    EXPECT_EQ(HTMLText::escaped("Rock 'n' Roll", Apostrophe::escaped), "Rock &#39;n&#39; Roll");
}
