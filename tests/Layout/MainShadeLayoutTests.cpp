#include "SkinKit/Layout/MainShadeLayout.h"
#include "SkinKit/Rendering/MainWindowLayout.h"

#include <gtest/gtest.h>

using namespace SkinKit;

TEST(MainShadeLayout, ExcludesFromDraggingWhatCanBeClicked)
{
    const Rect expected[] = {
        {6,   3, 9,  9 },
        {244, 3, 9,  9 },
        {254, 3, 9,  9 },
        {264, 3, 9,  9 },
        {127, 4, 30, 6 },
        {79,  5, 76, 5 },
        {169, 2, 7,  10},
        {176, 2, 10, 10},
        {186, 2, 9,  10},
        {195, 2, 9,  10},
        {204, 2, 10, 10},
        {215, 2, 10, 10},
        {226, 4, 17, 7 },
    };
    EXPECT_TRUE(std::ranges::equal(MainShadeLayout::dragExclusions, expected));
    for (const Rect& area : MainShadeLayout::dragExclusions)
        EXPECT_TRUE(contains(Rect{0, 0, 275, 14}, area));
    EXPECT_EQ(MainShadeLayout::size, MainWindowLayout::shadeSize);
}
