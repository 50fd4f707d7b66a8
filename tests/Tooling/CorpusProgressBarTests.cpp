#include "SkinKit/Tooling/CorpusProgressBar.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using Progress = CorpusRunner::Progress;

TEST(CorpusProgressBar, ShowsWhatIsAnsweredAndTheTimeLeft)
{
    struct Row {
        Progress progress;
        double seconds;
        int columns;
        std::string_view expected;
    };
    const auto running = Progress::Phase::running;
    const Row rows[] = {
        {{running, 0, 10, 0, {}},                 0,     42, "[                    ]    0.0%  0/10 skins"},
        {{running, 25, 100, 25, {}},
         10,                                             60,
         "[############             ]   50.0%  50/100 skins  0:20 left"                                  },
        {{running, 1, 3601, 0, {}},               1.001, 38, "    0.0%  1/3601 skins  1:00:04 left"      },
        {{running, 0, 0, 0, {}},                  5,     30, "[#########]  100.0%  0/0 skins"            },
        {{Progress::Phase::listing, 3, 4, 0, {}},
         120,                                            50,
         "[########   ]   75.0%  3/4 files listed  0:40 left"                                            },
        {{running, 5, 10, 0, {}},                 1,     12, "   50.0%  5/"                              },
    };
    for (const auto& row : rows)
        EXPECT_EQ(CorpusProgressBar::line(row.progress, row.seconds, row.columns), row.expected);
}
