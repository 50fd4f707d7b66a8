#include "SkinKit/Tooling/SkinInfo.h"

#include "tests/support/CursorWriter.h"
#include "tests/support/SkinBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace SkinKit;
using support::SkinBuilder;

namespace {

SkinInfo infoOf(const SkinBuilder& builder)
{
    return SkinInfo::of("some.wsz", builder.archive(), *builder.parse());
}

// Expects each of the parts in the JSON.
void expectParts(const SkinInfo& info, std::initializer_list<std::string_view> parts)
{
    const std::string text = info.json().text();
    for (const auto part : parts)
        EXPECT_TRUE(text.contains(part)) << part << "\n" << text;
}

}

TEST(SkinInfo, TellsFilesFromGeneratedSheetsAndWhatIsMissing)
{
    expectParts(infoOf(SkinBuilder().allSheets().without("posbar.bmp")),
                {R"("MAIN":{"hasAlpha":false,"height":116,"origin":"file","width":275})",
                 R"("POSBAR":{"hasAlpha":false,"height":10,"origin":"generated","width":307})",
                 R"("missingSprites":["MAIN_POSITION_SLIDER_BACKGROUND"])",
                 R"("mainWindowComplete":false)", R"("warnings":["Missing posbar.bmp"])",
                 R"("kept":15)", R"("status":"partial")"});
    expectParts(infoOf(SkinBuilder().allSheets()),
                {R"("mainWindowComplete":true)", R"("status":"ok")"});
}

TEST(SkinInfo, BoundsRegionsWhoseCornersLieTooFarApartForAWidth)
{
    expectParts(infoOf(SkinBuilder().allSheets().text(
                    "region.txt", "[Normal]\nNumPoints=3,3\nPointList=-9223372036854775808,0 "
                                  "9223372036854775807,4 5,-6\n[Equalizer]\nNumPoints=2\n"
                                  "PointList=1,1 2,2\n")),
                {R"("normal":{"bounds":{"bottom":4,"left":-9223372036854775808,)"
                 R"("right":9223372036854775807,"top":-6},"points":3,"polygons":1})",
                 R"("equalizer":{"points":0,"polygons":0})"});
}

TEST(SkinInfo, DescribesCursorsOfBothKindsAndTheUnreadable)
{
    const auto picture =
        support::cursorPicture(support::encodeBMP(support::solidImage({16, 8}, {1, 2, 3}), 24));
    support::AniFile animation;
    animation.frames = {support::curFile(picture, Point{5, 6})};
    animation.sequence = {0, 0};
    const auto info = infoOf(SkinBuilder()
                                 .allSheets()
                                 .file("normal.cur", support::curFile(picture, Point{3, 4}))
                                 .file("close.ani", animation.bytes())
                                 .text("min.cur", "damaged"));
    expectParts(info, {R"("NORMAL":{"bitCount":24,"height":8,"hotSpot":{"x":3,"y":4},"images":1,)"
                       R"("kind":"static","width":16})",
                       R"("frames":1)", R"("steps":2)", R"("unreadableCursors":["min.cur"])"});
    const auto lines = info.lines();
    for (const auto* line :
         {"  CLOSE             animated, 16 x 8, hot spot 5, 6, 1 frame in 2 steps",
          "  NORMAL            static, 16 x 8, hot spot 3, 4, 1 image",
          "  unreadable        min.cur"})
        EXPECT_NE(std::ranges::find(lines, line), lines.end()) << line;
}

TEST(RequiredSprites, CountsWhatASkinDoesNotBringItself)
{
    using Names = std::vector<std::string_view>;
    // A sheet that was generated does not count, a substitute of the skin's own does.
    const std::pair<Names, Names> rows[] = {
        {{},                              {}                                                   },
        {{"cbuttons.bmp", "balance.bmp"}, {"MAIN_PLAY_BUTTON"}                                 },
        {{"volume.bmp"},                  {"MAIN_VOLUME_BACKGROUND"}                           },
        {{"volume.bmp", "balance.bmp"},   {"MAIN_VOLUME_BACKGROUND", "MAIN_BALANCE_BACKGROUND"}},
        {{"numbers.bmp"},                 {}                                                   },
        {{"numbers.bmp", "nums_ex.bmp"},  {"DIGIT_0"}                                          },
    };
    for (const auto& [without, expected] : rows) {
        auto builder = SkinBuilder().allSheets();
        for (const auto name : without)
            builder.without(name);
        EXPECT_EQ(RequiredSprites::missing(*builder.parse()), expected);
    }
    const auto almostEmpty = SkinBuilder().sheet("gen.bmp", support::solidImage({1, 1}, {}));
    EXPECT_EQ(RequiredSprites::missing(*almostEmpty.parse()), RequiredSprites::all());
    EXPECT_EQ(RequiredSprites::all().size(), 10U);
}
