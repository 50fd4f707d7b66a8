#include "SkinKit/Windows/Main/MainShadeLayout.h"
#include "SkinKit/Windows/Main/MainSliders.h"
#include "SkinKit/Windows/Main/MainWindowLayout.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace SkinKit;

TEST(MainShadeLayout, ExcludesFromDraggingWhatCanBeClicked)
{
    const auto& areas = MainShadeLayout::dragExclusions;
    EXPECT_EQ(MainShadeLayout::size, MainWindowLayout::shadeSize);
    EXPECT_EQ(std::size(areas), 13U);
    for (const Rect& area : areas)
        EXPECT_TRUE(contains(Rect{0, 0, 275, 14}, area)) << area.x;
    const auto& position = MainSliders::shadePosition;
    for (const Point part : {
             Point{6,                      3                    },
             {252,                    11                   },
             {254,                    3                    },
             {272,                    11                   },
             {127,                    4                    },
             {79,                     5                    },
             {154,                    9                    },
             {169,                    2                    },
             {224,                    11                   },
             position.origin,
             {position.origin.x + 16, position.origin.y + 6}
    })
        EXPECT_TRUE(std::ranges::any_of(areas, [&](const Rect& r) { return contains(r, part); }))
            << part.x;
}
