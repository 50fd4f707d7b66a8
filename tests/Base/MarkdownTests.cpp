#include "SkinKit/Base/Markdown.h"

#include <gtest/gtest.h>

using namespace SkinKit;

TEST(Markdown, TakesNothingInACellForMarkup)
{
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"Missing gen.bmp, x - y + 1 (#2)!", "Missing gen.bmp, x - y + 1 (#2)!"},
        {"nums_ex",                          "nums_ex"                         },
        {"_a_ b__c",                         "\\_a\\_ b\\_\\_c"                },
        {"a|b\\|c",                          "a\\|b\\\\\\|c"                   },
        {"a\nb\r\tc\x1B[1m",                 "a b  c \\[1m"                    },
        {"<img src=x>&lt;",                  "&lt;img src=x&gt;&amp;lt;"       },
        {"`x` *y* ~z~ $1$",                  "\\`x\\` \\*y\\* \\~z\\~ \\$1\\$" },
        {"[x](y) ![z]",                      "\\[x\\](y) !\\[z\\]"             },
        {"https://x.y www.x.y a@b.c",        "https\\://x.y www\\.x.y a\\@b.c" },
        {"Größe_3 \u202Egpj",                "Größe_3  gpj"                    }, // turned direction
        {"",                                 ""                                },
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(Markdown::cell(text), expected);
}

TEST(Markdown, CutsACellShort)
{
    const std::string whole(4000, 'x');
    EXPECT_EQ(Markdown::cell(whole), whole);
    EXPECT_EQ(Markdown::cell(whole + "yz"), whole + "…");
}

TEST(Markdown, LinksOnlyToTheWebAndKeepsTheAddressInOnePiece)
{
    EXPECT_EQ(Markdown::link("a]b", "https://x.y/z?a=1&b=%20#c"),
              "[a\\]b](https://x.y/z?a=1&amp;b=%20#c)");
    EXPECT_EQ(Markdown::link("a", "http://x/(b) <c>|\n\"ä"),
              "[a](http://x/%28b%29%20%3Cc%3E%7C%0A%22%C3%A4)");
    EXPECT_EQ(Markdown::link("a|b", "javascript:alert(1)"), "a\\|b");
    EXPECT_EQ(Markdown::link("a", ""), "a");
}
