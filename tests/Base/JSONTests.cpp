#include "SkinKit/Base/JSON.h"

#include <gtest/gtest.h>

using namespace SkinKit;

namespace {

std::string nested(int depth)
{
    std::string text;
    for (int i = 0; i < depth; ++i)
        text += i % 2 == 0 ? "[" : "{\"a\":";
    text += "1";
    for (int i = depth - 1; i >= 0; --i)
        text += i % 2 == 0 ? "]" : "}";
    return text;
}

}

TEST(JSON, ReadsWhatItWrites)
{
    const JSON value = JSON::Object{
        {"array",  JSON::Array{JSON(), true, -5, 0.5, "\"\n/\xE2\x82\xAC", JSON::Object{}}},
        {"large",  UINT64_MAX                                                             },
        {"nested", JSON::Object{{"b", 1}, {"a", JSON::Array{JSON::Array{}}}}              },
    };
    EXPECT_EQ(JSON::parse(value.text()), value);
    EXPECT_EQ(JSON::parse(value.text(2)), value);
    EXPECT_EQ(JSON::parse(" 7 "), JSON(7));
    EXPECT_EQ(JSON::parse(R"({"a":1,"a":{"b":2}})"), JSON(JSON::Object{
                                                         {"a", JSON::Object{{"b", 2}}}
    }));
}

TEST(JSON, EscapesWhatATerminalWouldObeyOrNotShow)
{
    const JSON value = JSON::Array{"\x7F\u009B31m é\u2028\u202E\U000E0001"};
    EXPECT_EQ(value.text(), R"(["\u007f\u009b31m é\u2028\u202e\udb40\udc01"])");
    EXPECT_EQ(value.text(1), "[\n \"\\u007f\\u009b31m é\\u2028\\u202e\\udb40\\udc01\"\n]");
    EXPECT_EQ(JSON::parse(value.text()), value);
}

TEST(JSON, SaysWhereATextIsNoJSON)
{
    for (const auto& [text, error] : std::vector<std::pair<std::string, std::string>>{
             {"",           "not JSON at byte 1"},
             {"[1,",        "not JSON at byte 4"},
             {"[1] x",      "not JSON at byte 5"},
             {"[\"\xFF\"]", "not JSON at byte 3"},
             {"[1e999]",    "not JSON at byte 6"},
             {"{1:2}",      "not JSON at byte 2"},
    })
        EXPECT_EQ(JSON::parse(text), std::unexpected(error)) << text;
}

TEST(JSON, RefusesDeepNestingWithoutFollowingIt)
{
    EXPECT_EQ(JSON::parse(nested(JSON::maxDepth)).value().text(), nested(JSON::maxDepth));
    const std::string error = "nested deeper than 64 levels";
    EXPECT_EQ(JSON::parse(nested(JSON::maxDepth + 1)), std::unexpected(error));
    EXPECT_EQ(JSON::parse(std::string(10'000'000, '[')), std::unexpected(error));
}
