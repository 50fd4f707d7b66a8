#include "SkinKit/Formats/IniParser.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using IniParser::Sections;

TEST(IniParser, ReadsSectionsAndKeys)
{
    const std::pair<std::string_view, Sections> rows[] = {
        {"a=1\n[S]\nb=2",                        {{"s", {{"b", "2"}}}}                        }, // lines before a header say nothing
        {"[S]\r\na=1\rb=2\n\n\nc=3",             {{"s", {{"a", "1"}, {"b", "2"}, {"c", "3"}}}}},
        {" \t[ Some NAME ] \n KEY \t= A value ", {{"some name", {{"key", "A value"}}}}        },
        {"[É]\nÀ=È",                             {{"é", {{"à", "È"}}}}                        },
        {"[a]\nk=1\nk=2",                        {{"a", {{"k", "2"}}}}                        },
        {"[a]\nk=1\n[b]\n[A]\nj=2",              {{"a", {{"j", "2"}}}, {"b", {}}}             }, // a second header wipes
        // what is and is no header
        {"[]\nk=1",                              {}                                           },
        {"[ ]\nk=1",                             {{"", {{"k", "1"}}}}                         },
        {"[[a]]\nk=1",                           {{"[a]", {{"k", "1"}}}}                      },
        {"[a]\n[b=c]\nk=1",                      {{"a", {}}, {"b=c", {{"k", "1"}}}}           },
        // comments only at the start of a line
        {"[a]\n;k=1\n \t;k=2\nj=3;4",            {{"a", {{"j", "3;4"}}}}                      },
        {"[a]\n#k=1\nk",                         {{"a", {{"#k", "1"}}}}                       },
        // the key has at least one character
        {"[a]\n=\n=k\n==k\n=k=v",                {{"a", {{"=", "k"}, {"=k", "v"}}}}           },
        {"[a]\nk=",                              {{"a", {{"k", ""}}}}                         },
        // a byte order mark is a character like any other, so this is no header
        {"\uFEFF[a]\nk=1",                       {}                                           },
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(IniParser::parse(text), expected) << text;
}

TEST(IniParser, TakesTheQuotesOffTheEndsOfAValue)
{
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"\"a\"",     "a"    },
        {"'a'",       "a"    },
        {"\"a'",      "a"    },
        {"\"a",       "a"    },
        {"a'",        "a"    },
        {"'",         ""     },
        {"\"",        ""     },
        {"''",        ""     },
        {"'''",       "'"    },
        {"\"\"a\"\"", "\"a\""},
        {" ' a ' ",   " a "  },
        {"a'b",       "a'b"  },
    };
    for (const auto& [value, expected] : rows)
        EXPECT_EQ(IniParser::parse("[s]\nk=" + std::string(value)).at("s").at("k"), expected)
            << value;
}

TEST(IniParser, SkipsWhatFindsTooLittleMemory)
{
    LoadMeter meter;
    ASSERT_TRUE(meter.take(LoadMeter::defaultMemory - 1000));
    LoadMeter::Scratch memory(meter);
    const std::string large(2000, 'x');
    const auto sections = IniParser::parse(
        "[a]\nkey=" + large + "\nb=1\n[" + large + "]\nlost=1\n[c]\nd=2\n", memory);
    const IniParser::Sections expected{
        {"a", {{"b", "1"}}},
        {"c", {{"d", "2"}}}
    };
    EXPECT_EQ(sections, expected);
}
