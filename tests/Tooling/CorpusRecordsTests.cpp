#include "SkinKit/Tooling/CorpusRecords.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace SkinKit;
using support::bytes;

namespace {

class CorpusRecordsTest : public testing::Test {
protected:
    std::vector<std::string> pathsIn(std::string_view text)
    {
        std::vector<std::string> paths;
        const auto file = folder.write("results.jsonl", bytes(text));
        const auto take = [&](const CorpusRecord& record) { paths.push_back(*record.path); };
        EXPECT_FALSE(CorpusRecords::read(file, take));
        return paths;
    }

    const support::TemporaryFolder folder;
};

std::string line(const std::string& path)
{
    return CorpusRecord{.event = "result", .path = path}.line();
}

std::string joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const auto& line : lines)
        text.append(line).append("\n");
    return text;
}

}

TEST_F(CorpusRecordsTest, ReadsTheRecordsInTheirOrder)
{
    EXPECT_EQ(pathsIn(joined({line("b"), line("a")})), (std::vector<std::string>{"b", "a"}));
    EXPECT_EQ(pathsIn(""), std::vector<std::string>());
}

TEST_F(CorpusRecordsTest, PassesOverLinesThatAreNoRecord)
{
    EXPECT_EQ(pathsIn(joined({"", line("a"), "", "{\"event\":\"resu", "nonsense", line("b")}) +
                      "{\"event\":\"result\",\"path\":\"cut"),
              (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(pathsIn(joined({line("a")}) + line("whole, without its line feed")),
              (std::vector<std::string>{"a", "whole, without its line feed"}));
}

TEST_F(CorpusRecordsTest, PutsLinesTogetherThatAreReadInParts)
{
    std::vector<std::string> lines;
    std::vector<std::string> expected;
    for (std::size_t i = 0; i < 1500; ++i)
        expected.push_back(std::to_string(i) + std::string(i % 1000, 'x'));
    expected.push_back(std::string(1 << 20, 'y'));
    expected.push_back("z");
    for (const auto& path : expected)
        lines.push_back(line(path));
    EXPECT_EQ(pathsIn(joined(lines)), expected);
}

TEST_F(CorpusRecordsTest, PassesOverALineTooLongToBeOne)
{
    const std::string longText(static_cast<std::size_t>(CorpusRecords::maxLineBytes), 'x');
    EXPECT_EQ(pathsIn(joined({line("a"), line(longText), line("b")})),
              (std::vector<std::string>{"a", "b"}));
}

TEST_F(CorpusRecordsTest, SaysWhenThereIsNoSuchFile)
{
    const auto ignore = [](const CorpusRecord&) { FAIL(); };
    EXPECT_EQ(CorpusRecords::read(folder / "none", ignore), std::errc::no_such_file_or_directory);
    EXPECT_EQ(CorpusRecords::read(folder.path(), ignore), std::errc::is_a_directory);
}
