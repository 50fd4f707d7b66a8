#include "SkinKit/Tooling/RequiredSprites.h"
#include "tests/support/SkinBuilder.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using support::SkinBuilder;

namespace {

using Names = std::vector<std::string_view>;

Names missing(const SkinBuilder& builder)
{
    return RequiredSprites::missing(*builder.parse());
}

}

TEST(RequiredSprites, CountsWhatASkinDoesNotBringItself)
{
    EXPECT_EQ(missing(SkinBuilder{}.allSheets()), Names{});
    // A sheet that was generated does not count, a substitute of the skin's own does.
    EXPECT_EQ(missing(SkinBuilder{}.allSheets().without("cbuttons.bmp").without("balance.bmp")),
              Names{"MAIN_PLAY_BUTTON"});
    EXPECT_EQ(missing(SkinBuilder{}.allSheets().without("volume.bmp")),
              Names{"MAIN_VOLUME_BACKGROUND"});
    EXPECT_EQ(missing(SkinBuilder{}.allSheets().without("volume.bmp").without("balance.bmp")),
              (Names{"MAIN_VOLUME_BACKGROUND", "MAIN_BALANCE_BACKGROUND"}));
    EXPECT_EQ(missing(SkinBuilder{}.allSheets().without("numbers.bmp")), Names{});
    EXPECT_EQ(missing(SkinBuilder{}.allSheets().without("numbers.bmp").without("nums_ex.bmp")),
              Names{"DIGIT_0"});
    EXPECT_EQ(missing(SkinBuilder{}.sheet("gen.bmp", support::solidImage({1, 1}, {}))),
              RequiredSprites::all());
    EXPECT_EQ(RequiredSprites::all().size(), 10U);
}
