#include "SkinKit/Tooling/Corpus/CorpusRecord.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace SkinKit;

// clang-format off
TEST(CorpusRecord, IsOneLineWithSortedKeysAndPlainSlashes)
{
    const CorpusRecord whole{
        .event = "result", .i = 3, .path = "a/b\n\"c\".wsz", .name = "b", .md5 = "00ff",
        .size = 1234, .entries = 20, .status = "partial", .mainWindowComplete = false,
        .warnings = {{"Missing gen.bmp", "\xE2\x82\xAC"}}, .fallbacks = std::vector<std::string>{},
        .error = "e", .parseMs = 0.1, .renderMs = 2, .ms = 1e-7, .of = "o", .restart = 1,
        .footprintMiB = 9, .t = 1700000000.123456, .museumUrl = "https://example.org/x",
        .nsfw = true,
    };
    EXPECT_EQ(
        whole.line(),
        R"({"entries":20,"error":"e","event":"result","fallbacks":[],"footprintMiB":9,"i":3,)"
        R"("mainWindowComplete":false,"md5":"00ff","ms":1e-07,"museumUrl":"https://example.org/x",)"
        R"("name":"b","nsfw":true,"of":"o","parseMs":0.1,"path":"a/b\n\"c\".wsz","renderMs":2.0,)"
        R"("restart":1,"size":1234,"status":"partial","t":1700000000.123456,)"
        R"("warnings":["Missing gen.bmp","€"]})");
    EXPECT_EQ(CorpusRecord::parse(whole.line()), whole);
}

TEST(CorpusRecord, ReadsLinesWrittenInAnotherWayAndNothingElse)
{
    const std::pair<std::string, std::optional<CorpusRecord>> rows[] = {
        {R"({"event":"x","i":null,"size":5.0,"ms":7,"other":[{}]})",
         CorpusRecord{.event = "x", .size = 5, .ms = 7}},
        {R"({"t":1E2,"event":"x","ms":-0.5})", CorpusRecord{.event = "x", .ms = -0.5, .t = 100}},
        {R"({"event":"x","event":"y","i":1,"i":null})", CorpusRecord{.event = "y"}},
        {"{}",                                        {}},
        {R"({"event":null})",                         {}},
        {R"({"event":"x","i":"1"})",                  {}},
        {R"({"event":"x","i":1.5})",                  {}},
        {R"({"event":"x","i":9223372036854775808})",  {}},
        {R"({"event":"x","nsfw":0})",                 {}},
        {R"({"event":"x","warnings":["a",1]})",       {}},
        {R"({"event":"x","warnings":{"a":"b"}})",     {}},
        {R"({"event":"x"} y)",                        {}},
    };
    for (const auto& [line, expected] : rows)
        EXPECT_EQ(CorpusRecord::parse(line), expected) << line;
}
// clang-format on

TEST(CorpusRecords, ReadsTheRecordsThatAreWhole)
{
    const support::TemporaryFolder folder;
    EXPECT_EQ(CorpusRecords::readAll(folder / "missing"), std::vector<CorpusRecord>{});
    EXPECT_FALSE(CorpusRecords::readAll(folder.path()));
    const std::string text = "{\"event\":\"a\"}\n\nrubbish\n{\"event\":\"b\"}\n{\"event\":\"c\"";
    const std::vector<CorpusRecord> expected{{.event = "a"}, {.event = "b"}};
    EXPECT_EQ(CorpusRecords::readAll(folder.write("results", support::bytes(text))), expected);
}
