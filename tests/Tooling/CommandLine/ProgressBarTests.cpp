#include "SkinKit/Tooling/CommandLine/ProgressBar.h"

#include <gtest/gtest.h>

using namespace SkinKit;
TEST(ProgressBar, ShowsWhatIsAnsweredAndTheTimeLeft)
{
    // clang-format off
    const struct { ProgressBar::Numbers numbers; double seconds; int columns; std::string_view expected; } rows[] = {
        {{0, 0, 10, "skins"},       0,     42, "[                    ]    0.0%  0/10 skins"},
        {{25, 25, 100, "skins"}, 10, 60,
         "[############             ]   50.0%  50/100 skins  0:20 left"},
        {{1, 0, 3601, "skins"},     1.001, 38, "    0.0%  1/3601 skins  1:00:04 left"},
        {{0, 0, 0, "skins"},        5,     30, "[#########]  100.0%  0/0 skins"},
        {{3, 0, 4, "files listed"}, 120, 50, "[########   ]   75.0%  3/4 files listed  0:40 left"},
        {{5, 0, 10, "skins"},       1,     12, "   50.0%  5/"},
    };
    // clang-format on
    for (const auto& row : rows)
        EXPECT_EQ(ProgressBar::line(row.numbers, row.seconds, row.columns), row.expected);
}
