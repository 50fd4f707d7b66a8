#include "SkinKit/Tooling/Corpus/CorpusSample.h"

#include <gtest/gtest.h>

#include <string>

using namespace SkinKit;
using Positions = std::vector<std::size_t>;

TEST(CorpusSample, IsEverythingWhenThereIsNoMore)
{
    for (const std::uint64_t seed : {0ULL, 1ULL, ~0ULL}) {
        EXPECT_EQ(CorpusSample::indices(5, 5, seed), (Positions{0, 1, 2, 3, 4}));
        EXPECT_EQ(CorpusSample::indices(2, 9, seed), (Positions{0, 1}));
    }
    EXPECT_EQ(CorpusSample::indices(0, 0, 1), Positions{});
    EXPECT_EQ(CorpusSample::indices(0, 3, 1), Positions{});
    EXPECT_EQ(CorpusSample::indices(1, 0, 1), Positions{});
}

// Positions worked out apart from this program, from the generator's published constants.
TEST(CorpusSample, DrawsTheSamePositionsForASeedEverywhere)
{
    EXPECT_EQ(CorpusSample::indices(10, 3, 1), (Positions{2, 4, 8}));
    EXPECT_EQ(CorpusSample::indices(10, 3, 2), (Positions{3, 8, 9}));
    EXPECT_EQ(CorpusSample::indices(1000, 4, 0), (Positions{135, 501, 909, 996}));
    EXPECT_EQ(CorpusSample::indices(7, 6, UINT64_MAX), (Positions{1, 2, 3, 4, 5, 6}));
}

TEST(CorpusSample, KeepsThePickedThingsInTheirOrder)
{
    const std::vector<std::string> letters{"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"};
    std::vector<std::string> expected;
    for (const auto index : CorpusSample::indices(10, 4, 5))
        expected.push_back(letters[index]);
    EXPECT_EQ(CorpusSample::pick(letters, 4, 5), expected);
}
