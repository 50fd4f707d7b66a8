#include "tests/hostile/HostileFiles.h"
#include "tests/hostile/Trial.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace hostile;

namespace {

class Hostile : public testing::TestWithParam<HostileFile> {};

// A program ends in order, either way, and says in a line what is wrong.
void expectOrder(const Attempt& attempt)
{
    constexpr int done = 0;
    constexpr int trouble = 2;
    EXPECT_TRUE(attempt.status == done || attempt.status == trouble)
        << attempt.what << ": " << attempt.status << ": " << attempt.said;
    if (attempt.status == trouble) {
        EXPECT_EQ(std::ranges::count(attempt.said, '\n'), 1)
            << attempt.what << ": " << attempt.said;
    }
}

void expectWithin(const Bounds& bounds, const std::vector<Attempt>& attempts)
{
    for (const Attempt& attempt : attempts) {
        expectOrder(attempt);
        EXPECT_LT(attempt.processorSeconds, bounds.processorSeconds) << attempt.what;
        EXPECT_LT(attempt.peakMiB, bounds.peakMiB) << attempt.what;
    }
}

}

TEST_P(Hostile, CostsNoMoreThanTheBounds)
{
    const support::TemporaryFolder folder;
    const auto skin = folder / "skin";
    make(GetParam(), skin);
    expectWithin(libraryBounds, trySkintool(SKINTOOL_PROGRAM, skin));
    expectWithin(thumbnailerBounds, tryThumbnailer(THUMBNAILER_PROGRAM, skin));
}

INSTANTIATE_TEST_SUITE_P(Files, Hostile, testing::ValuesIn(files().begin(), files().end()),
                         [](const auto& row) { return std::string(row.param.name); });
