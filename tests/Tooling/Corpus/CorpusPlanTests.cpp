#include "SkinKit/Tooling/Corpus/CorpusPlan.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

using namespace SkinKit;

namespace {

using Duplicates = std::vector<CorpusPlan::Duplicate>;

const std::vector<CorpusFile> files{
    {.path = "0", .md5 = "a"},
    {.path = "1", .md5 = "b"},
    {.path = "2", .md5 = "a"},
    {.path = "3"},
    {.path = "4"},
    {.path = "5", .md5 = "b"},
    {.path = "6", .md5 = "a"},
};

}

TEST(CorpusPlan, TakesTheFirstOfEachContent)
{
    EXPECT_EQ(CorpusPlan::of(files, std::nullopt, 1),
              (CorpusPlan{
                  .unique = 4, .skins = {0, 1, 3, 4},
                       .duplicates = {{2, 0}, {5, 1}, {6, 0}}
    }));
    EXPECT_EQ(CorpusPlan::of({}, 3, 1), CorpusPlan{});
}

TEST(CorpusPlan, KeepsOnlyTheDuplicatesOfASample)
{
    std::set<std::size_t> seen;
    for (std::uint64_t seed = 0; seed < 20; ++seed) {
        const auto plan = CorpusPlan::of(files, 1, seed);
        EXPECT_EQ(plan.unique, 4);
        ASSERT_EQ(plan.skins.size(), 1U);
        seen.insert(plan.skins[0]);
        const std::map<std::size_t, Duplicates> expected{
            {0, {{2, 0}, {6, 0}}},
            {1, {{5, 1}}        },
            {3, {}              },
            {4, {}              }
        };
        EXPECT_EQ(plan.duplicates, expected.at(plan.skins[0]));
    }
    EXPECT_EQ(seen, (std::set<std::size_t>{0, 1, 3, 4}));
}

TEST(CorpusHistory, KnowsWhatWasAnsweredAndWhatWasNot)
{
    const auto history = CorpusHistory::of({
        {.event = "start", .path = "answered"},
        {.event = "start", .i = 1, .path = "crashed"},
        {.event = "start", .i = 2, .path = "crashed"}, // told once, as it began first
        {.event = "result", .path = "answered", .status = "timeout"},
        {.event = "start", .path = "late"},
        {.event = "result", .path = "duplicate", .of = "answered"},
        {.event = "result", .path = "x", .status = "crashed", .restart = 2},
        {.event = "result", .status = "memory"},
        {.event = "start"},
        {.event = "end"},
        {.event = "result", .path = "late", .status = "ok"},
    });
    EXPECT_EQ(history.answered,
              (std::unordered_set<std::string>{"answered", "duplicate", "x", "late"}));
    EXPECT_EQ(history.unanswered, (std::vector<CorpusRecord>{
                                      {.event = "start", .i = 1, .path = "crashed"}
    }));
    EXPECT_EQ(history.abnormalEnds, 3);
}

TEST(CorpusSample, IsEverythingWhenThereIsNoMore)
{
    for (const std::uint64_t seed : {0ULL, 1ULL, ~0ULL}) {
        EXPECT_EQ(CorpusSample::indices(5, 5, seed), (std::vector<std::size_t>{0, 1, 2, 3, 4}));
        EXPECT_EQ(CorpusSample::indices(2, 9, seed), (std::vector<std::size_t>{0, 1}));
    }
    EXPECT_EQ(CorpusSample::indices(0, 0, 1), std::vector<std::size_t>{});
    EXPECT_EQ(CorpusSample::indices(0, 3, 1), std::vector<std::size_t>{});
    EXPECT_EQ(CorpusSample::indices(1, 0, 1), std::vector<std::size_t>{});
}

// Positions worked out apart from this program, from the generator's published constants.
TEST(CorpusSample, DrawsTheSamePositionsForASeedEverywhere)
{
    EXPECT_EQ(CorpusSample::indices(10, 3, 1), (std::vector<std::size_t>{2, 4, 8}));
    EXPECT_EQ(CorpusSample::indices(10, 3, 2), (std::vector<std::size_t>{3, 8, 9}));
    EXPECT_EQ(CorpusSample::indices(1000, 4, 0), (std::vector<std::size_t>{135, 501, 909, 996}));
    EXPECT_EQ(CorpusSample::indices(7, 6, UINT64_MAX),
              (std::vector<std::size_t>{1, 2, 3, 4, 5, 6}));
}

TEST(CorpusSample, KeepsThePickedThingsInTheirOrder)
{
    const std::vector<std::string> letters{"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"};
    std::vector<std::string> expected;
    for (const auto index : CorpusSample::indices(10, 4, 5))
        expected.push_back(letters[index]);
    EXPECT_EQ(CorpusSample::pick(letters, 4, 5), expected);
}
