#include "SkinKit/Base/JSON.h"

#include <gtest/gtest.h>

#include <limits>

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
}

TEST(JSON, EscapesWhatATerminalWouldObeyOrNotShow)
{
    const JSON value = JSON::Array{"\x7F\u009B31m é\u2028\u202E\U000E0001"};
    EXPECT_EQ(value.text(), R"(["\u007f\u009b31m é\u2028\u202e\udb40\udc01"])");
    EXPECT_EQ(value.text(1), "[\n \"\\u007f\\u009b31m é\\u2028\\u202e\\udb40\\udc01\"\n]");
    EXPECT_EQ(JSON::parse(value.text()), value);
}

TEST(JSON, ReadsEveryFormOfAValue)
{
    // clang-format off
    const std::pair<std::string, std::string_view> rows[] = {
        {"\xEF\xBB\xBF \t\r\n[ 1 , { \"a\" : [ ] } ] \n", R"([1,{"a":[]}])"},
        {R"("\"\\\/\b\f\n\r\t\u20aC\uD83C\uDFB5")",      "\"\\\"\\\\/\\b\\f\\n\\r\\t€\U0001F3B5\""},
        {R"(["a\u0000b", "c", "\u00e9d"])",              R"(["a\u0000b","c","éd"])"},
        {"[-0, 9223372036854775807, -9223372036854775808]",
         "[0,9223372036854775807,-9223372036854775808]"},
        {"[18446744073709551615, 18446744073709551616, -9223372036854775809]",
         "[18446744073709551615,1.8446744073709552e+19,-9.223372036854776e+18]"},
        {"[-0.0, 1E2, 1e+2, 12.5e-1, 1e-999]",           "[-0.0,100.0,100.0,1.25,0.0]"},
        {R"({"b":1,"a":2,"b":{"c":null}})",              R"({"a":2,"b":{"c":null}})"}, // the last
    };
    // clang-format on
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(JSON::parse(text).value_or("none").text(), expected) << text;
    EXPECT_EQ(JSON(std::numeric_limits<double>::infinity()).text(), "null");
}

TEST(JSON, SaysWhereATextIsNoJSON)
{
    // clang-format off
    const std::pair<std::string, int> rows[] = {
        {"",                     1}, {"[1,",           4}, {"[1] x",         5}, {"[1,]",      4},
        {"{1:2}",                2}, {"{\"a\" 1}",     6}, {"{\"a\":1,}",    8}, {"[1}",       3},
        {"[1 2]",                4}, {"tru",           4}, {"[nul]",         5}, {"\"a",       3},
        {"01",                   2}, {"[1.]",          4}, {"[1e+]",         5}, {"[-]",       3},
        {"+1",                   1}, {".5",            1}, {"[1e999]",       6}, {"NaN",       1},
        {"\"\n\"",               2}, {R"("\x")",       3}, {R"("\u12g4")",   4}, {R"("\u1")",  4},
        {R"("\udc00")",          8}, {R"("\ud800")",   8}, {R"("\ud800\n")", 9},
        {"[\"\xFF\"]",           3}, {"\"\xED\xA0\x80\"", 2}, {std::string("1\0", 2), 2},
    };
    // clang-format on
    for (const auto& [text, position] : rows)
        EXPECT_EQ(JSON::parse(text),
                  std::unexpected("not JSON at byte " + std::to_string(position)))
            << text;
}

TEST(JSON, RejectsDeepNestingWithoutFollowingIt)
{
    EXPECT_EQ(JSON::parse(nested(JSON::maxDepth)).value().text(), nested(JSON::maxDepth));
    const std::string error = "nested deeper than 64 levels";
    EXPECT_EQ(JSON::parse(nested(JSON::maxDepth + 1)), std::unexpected(error));
    EXPECT_EQ(JSON::parse(std::string(10'000'000, '[')), std::unexpected(error));
}
