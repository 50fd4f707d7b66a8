#include "SkinKit/Tooling/Corpus/CorpusPlan.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using Indices = std::vector<std::size_t>;

TEST(CorpusPlan, TakesTheFirstOfEachContentOrASampleOfThemWithItsDuplicates)
{
    const std::vector<CorpusFile> files{
        {.path = "0", .md5 = "a"},
        {.path = "1", .md5 = "b"},
        {.path = "2", .md5 = "a"},
        {.path = "3"},
        {.path = "4"},
        {.path = "5", .md5 = "b"},
        {.path = "6", .md5 = "a"},
    };
    const std::vector<CorpusPlan::Duplicate> all{
        {2, 0},
        {5, 1},
        {6, 0}
    };
    EXPECT_EQ(CorpusPlan::of(files, std::nullopt, 1),
              (CorpusPlan{
                  .unique = 4, .skins = {0, 1, 3, 4},
                       .duplicates = all
    }));
    for (std::uint64_t seed = 0; seed < 20; ++seed) {
        const auto plan = CorpusPlan::of(files, 1, seed);
        EXPECT_EQ(plan.unique, 4);
        EXPECT_EQ(plan.skins, CorpusSample::pick(Indices{0, 1, 3, 4}, 1, seed));
        auto expected = all;
        std::erase_if(expected, [&](const auto& row) { return row.of != plan.skins.at(0); });
        EXPECT_EQ(plan.duplicates, expected);
    }
}

TEST(CorpusHistory, KnowsWhatWasAnsweredAndWhatWasNot)
{
    const auto history = CorpusHistory::of({
        {.event = "start", .path = "answered"},
        {.event = "start", .i = 1, .path = "crashed"},
        {.event = "start", .i = 2, .path = "crashed"}, // listed once, as it began first
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
    const CorpusRecord crashed{.event = "start", .i = 1, .path = "crashed"};
    EXPECT_EQ(history.unanswered, std::vector{crashed});
    EXPECT_EQ(history.abnormalEnds, 3);
}

// Positions worked out apart from this program, from the generator's published constants.
TEST(CorpusSample, DrawsTheSamePositionsForASeedEverywhere)
{
    const struct {
        std::size_t count, sample;
        std::uint64_t seed;
        Indices expected;
    } rows[] = {
        {10,   3, 1,          {2, 4, 8}           },
        {10,   3, 2,          {3, 8, 9}           },
        {1000, 4, 0,          {135, 501, 909, 996}},
        {7,    6, UINT64_MAX, {1, 2, 3, 4, 5, 6}  },
        {2,    9, 1,          {0, 1}              }, // no more than there is
        {3,    0, 1,          {}                  },
        {0,    1, 1,          {}                  },
    };
    for (const auto& [count, sample, seed, expected] : rows)
        EXPECT_EQ(CorpusSample::indices(count, sample, seed), expected) << count;
}
