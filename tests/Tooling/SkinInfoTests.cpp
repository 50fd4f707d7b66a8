#include "SkinKit/Tooling/InfoOptions.h"
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

const JSON& at(const JSON& json, std::initializer_list<std::string_view> path)
{
    const JSON* value = &json;
    for (const auto key : path)
        value = &std::get<JSON::Object>(value->value()).find(key)->second;
    return *value;
}

}

TEST(SkinInfo, TellsFilesFromGeneratedSheetsAndWhatIsMissing)
{
    const auto info = infoOf(SkinBuilder().allSheets().without("posbar.bmp"));
    EXPECT_EQ(info.status(), "partial");
    const JSON json = info.json();
    EXPECT_EQ(at(json,
                 {
                     "sheets", "MAIN"
    }),
              JSON(JSON::Object{
                  {"width", 275}, {"height", 116}, {"origin", "file"}, {"hasAlpha", false}}));
    EXPECT_EQ(at(json, {"sheets", "POSBAR", "origin"}), JSON("generated"));
    EXPECT_EQ(at(json, {"missingSprites"}), JSON(JSON::Array{"MAIN_POSITION_SLIDER_BACKGROUND"}));
    EXPECT_EQ(at(json, {"mainWindowComplete"}), JSON(false));
    EXPECT_EQ(at(json, {"warnings"}), JSON(JSON::Array{"Missing posbar.bmp"}));
    EXPECT_EQ(at(json, {"entries", "kept"}), JSON(15));
}

TEST(SkinInfo, CallsASkinWithoutWarningsOkAndComplete)
{
    const auto info = infoOf(SkinBuilder().allSheets());
    EXPECT_EQ(info.status(), "ok");
    EXPECT_EQ(at(info.json(), {"mainWindowComplete"}), JSON(true));
    EXPECT_EQ(info.summary(),
              "16 sheets found, 0 generated; 16 of 16 entries kept; main window complete");
}

TEST(SkinInfo, BoundsRegionsWhoseCornersLieTooFarApartForAWidth)
{
    const JSON json =
        infoOf(SkinBuilder().allSheets().text(
                   "region.txt", "[Normal]\nNumPoints=3,3\nPointList=-9223372036854775808,0 "
                                 "9223372036854775807,4 5,-6\n[Equalizer]\nNumPoints=2\n"
                                 "PointList=1,1 2,2\n"))
            .json();
    EXPECT_EQ(at(json,
                 {
                     "region", "normal"
    }),
              JSON(JSON::Object{{"polygons", 1},
                                {"points", 3},
                                {"bounds", JSON::Object{{"left", INT64_MIN},
                                                        {"top", -6},
                                                        {"right", INT64_MAX},
                                                        {"bottom", 4}}}}));
    EXPECT_EQ(at(json,
                 {
                     "region", "equalizer"
    }),
              JSON(JSON::Object{{"polygons", 0}, {"points", 0}}));
}

TEST(SkinInfo, DescribesCursorsOfBothKindsAndTheUnreadable)
{
    const auto picture =
        support::cursorPicture(support::encodeBMP(support::solidImage({16, 8}, {1, 2, 3}), 24));
    const auto info = infoOf(
        SkinBuilder()
            .allSheets()
            .file("normal.cur", support::curFile(picture,
                                                 {
                                                     3, 4
    }))
            .file("close.ani", support::AniFile{.frames = {support::curFile(picture, {5, 6})},
                                                .sequence = {0, 0}}
                                   .bytes())
            .text("min.cur", "damaged"));
    EXPECT_EQ(at(info.json(),
                 {
                     "cursors", "NORMAL"
    }),
              JSON(JSON::Object{{"kind", "static"},
                                {"width", 16},
                                {"height", 8},
                                {"hotSpot", JSON::Object{{"x", 3}, {"y", 4}}},
                                {"bitCount", 24},
                                {"images", 1}}));
    EXPECT_EQ(at(info.json(), {"cursors", "CLOSE", "frames"}), JSON(1));
    EXPECT_EQ(at(info.json(), {"cursors", "CLOSE", "steps"}), JSON(2));
    EXPECT_EQ(at(info.json(), {"unreadableCursors"}), JSON(JSON::Array{"min.cur"}));
    const auto lines = info.lines();
    for (const auto* line :
         {"  CLOSE             animated, 16 x 8, hot spot 5, 6, 1 frame in 2 steps",
          "  NORMAL            static, 16 x 8, hot spot 3, 4, 1 image",
          "  unreadable        min.cur"})
        EXPECT_NE(std::ranges::find(lines, line), lines.end()) << line;
}

TEST(InfoOptions, AcceptsOneSkinAndReportsTheFirstError)
{
    using Arguments = std::vector<std::string>;
    const auto error = [](const Arguments& arguments) {
        return InfoOptions::parse(arguments).error().description;
    };
    EXPECT_EQ(InfoOptions::parse(Arguments{"a.wsz", "--json"}),
              (InfoOptions{.json = true, .input = "a.wsz"}));
    EXPECT_EQ(error({}), "missing <skin.wsz | folder>");
    EXPECT_EQ(error({"--json"}), "missing <skin.wsz | folder>");
    EXPECT_EQ(error({"a", "b"}), "only one <skin.wsz | folder> is accepted");
    EXPECT_EQ(error({"a", "b", "-x"}), "unknown option: -x");
}
