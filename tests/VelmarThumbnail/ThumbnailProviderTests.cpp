#include "SkinKit/Graphics/AreaFilter.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "VelmarThumbnail/ThumbnailProvider.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace SkinKit;
using namespace VelmarThumbnail;
using support::SkinBuilder;
using support::TemporaryFolder;

namespace {

const SkinBuilder builder = SkinBuilder().allSheets();

Image window(int scale)
{
    return MainWindowRenderer::render(*builder.parse(), MainWindowState::idle(), scale, Clip::none);
}

struct Answer {
    int calls = 0;
    std::optional<ThumbnailReply> reply;
    std::optional<ThumbnailError> error;
};

Answer ask(const std::filesystem::path& file, double maximum, double scale = 1, double minimum = 0)
{
    Answer answer;
    ThumbnailProvider::provideThumbnail(
        {
            file, {maximum, maximum},
             {minimum, minimum},
             scale
    },
        [&](const auto& reply, const auto& error) { answer = {answer.calls + 1, reply, error}; });
    return answer;
}

class ThumbnailProviderTest : public testing::Test {
protected:
    const TemporaryFolder folder;
    const std::filesystem::path skin = folder.write("skin.wsz", builder.zip());
};

}

TEST_F(ThumbnailProviderTest, RepliesWithTheIdleWindowFittedIntoTheSize)
{
    struct Row {
        double maximum, scale;
        SizeF context;
        int renderScale;
    };
    const Row rows[] = {
        {512,  2,   {412.5, 174},             3},
        {1100, 1,   {1100, 464},              4},
        {275,  1.5, {183 + 1. / 3, 232. / 3}, 1},
        {512,  NAN, {275, 116},               1},
    };
    for (const auto& row : rows) {
        const auto answer = ask(skin, row.maximum, row.scale);
        ASSERT_EQ(answer.calls, 1);
        ASSERT_TRUE(answer.reply && !answer.error);
        EXPECT_DOUBLE_EQ(answer.reply->contextSize.width, row.context.width);
        EXPECT_DOUBLE_EQ(answer.reply->contextSize.height, row.context.height);
        EXPECT_EQ(answer.reply->image(row.scale), window(row.renderScale)) << row.maximum;
    }
}

TEST_F(ThumbnailProviderTest, CentresTheWindowInALargerMinimum)
{
    // The top left corner is (99.5, 338) in device pixels.
    const auto sharp = ask(skin, 512, 2, 512).reply;
    ASSERT_TRUE(sharp);
    EXPECT_EQ(sharp->contextSize, (SizeF{512, 512}));
    Canvas expected({1024, 1024});
    expected.draw(window(3), Point{100, 338});
    EXPECT_EQ(sharp->image(2), expected.image());

    // At (12.5, 92), which 1.5 pixels a point can't quite say.
    Canvas expectedBetween({300, 300});
    expectedBetween.draw(window(1), Point{13, 92});
    EXPECT_EQ(ask(skin, 200, 1.5, 200).reply->image(1.5), expectedBetween.image());

    // Smoothly, the 27 rows stand half a pixel lower than whole ones.
    const auto smooth = ask(skin, 64, 1, 64).reply->image(1);
    ASSERT_TRUE(smooth);
    EXPECT_EQ(smooth->size(), (Size{64, 64}));
    EXPECT_EQ(*smooth->crop({0, 18, 64, 28}),
              AreaFilter::resample(window(1), {64, 28}, {0, 0.5, 64, 27}));
    EXPECT_EQ(alphaOf(smooth->pixel({32, 17})), 0U);
    EXPECT_EQ(alphaOf(smooth->pixel({32, 18})), 128U);
}

TEST_F(ThumbnailProviderTest, StretchesTheWindowInAContextOfAnotherScale)
{
    const auto reply = ask(skin, 275).reply;
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->image(2), window(2));
    EXPECT_EQ(reply->image(0), window(1)); // which counts as 1
}

TEST_F(ThumbnailProviderTest, RepliesWithTheErrorOfARejectedSkin)
{
    const auto answer = ask(folder.write("empty.wsz", SkinBuilder().text("a.txt", "").zip()), 300);
    EXPECT_EQ(answer.calls, 1);
    EXPECT_FALSE(answer.reply);
    EXPECT_EQ(answer.error,
              (ThumbnailError{"SkinKit.SkinError", 2, "No classic skin bitmaps found"}));
}
