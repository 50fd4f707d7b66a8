#include "SkinKit/Graphics/Canvas.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using support::picture;
using support::rowsOf;

namespace {

using Rows = std::vector<std::string>;

const support::Legend legend{
    {'.', transparentPixel},
    {'#', packPixel(255, 0, 0)},
    {'o', packPixel(0, 0, 255)},
    {'-', packPixel(0, 128, 0, 128)}, // half a green, premultiplied
    {'+', packPixel(127, 128, 0)}, // that over red
};

}

// A rectangle that reaches past the last coordinate ends there.
static_assert(Rect{INT_MAX - 5, INT_MIN, 100, -1}.right() == INT_MAX &&
              Rect{INT_MAX - 5, INT_MIN, 100, -1}.bottom() == INT_MIN);
static_assert(intersection({INT_MAX - 5, 0, 100, 1}, {INT_MAX - 9, 0, 100, 1}) ==
              Rect{INT_MAX - 5, 0, 5, 1});

TEST(Canvas, ReplicatesEachPixelIntoABlockAtEveryScale)
{
    const Image image = picture({"#o", "o."}, legend);
    for (const int scale : {1, 2, 3, 4, 5, 8, 13}) {
        Canvas canvas({2 * scale, 2 * scale});
        canvas.scale(scale);
        canvas.draw(image, Point{0, 0});
        for (int y = 0; y < 2 * scale; ++y)
            for (int x = 0; x < 2 * scale; ++x)
                ASSERT_EQ(canvas.row(y)[static_cast<std::size_t>(x)],
                          image.pixel({x / scale, y / scale}))
                    << "scale " << scale << " at " << x << ", " << y;
    }
}

TEST(Canvas, LeavesOutWhatLiesOutsideTheRasterOnEverySide)
{
    const Image image = support::solidImage({3, 3}, {255, 0, 0});
    Canvas canvas({4, 3});
    canvas.draw(image, Point{-2, -2});
    canvas.draw(image, Point{3, 2});
    canvas.draw(image, Point{4, 0});
    canvas.draw(image, Point{INT_MAX, INT_MIN});
    EXPECT_EQ(rowsOf(canvas.image(), legend), (Rows{"#...", "....", "...#"}));
}

TEST(Canvas, CutsABlockWhereTheOriginIsNoMultipleOfTheScale)
{
    Canvas canvas({5, 2});
    canvas.translate({-1, 0});
    canvas.scale(2);
    canvas.draw(picture({"#o#"}, legend), Point{0, 0});
    EXPECT_EQ(rowsOf(canvas.image(), legend), (Rows{"#oo##", "#oo##"}));
}

TEST(Canvas, CompositesAlphaOverWhatLiesBeneath)
{
    Canvas canvas({3, 1});
    canvas.draw(picture({"##."}, legend), Point{0, 0});
    canvas.draw(picture({".--"}, legend), Point{0, 0});
    EXPECT_EQ(rowsOf(canvas.image(), legend), (Rows{"#+-"}));
}

TEST(Canvas, StretchesACropBySamplingPixelCentres)
{
    Canvas canvas({5, 3});
    canvas.draw(picture({"#o", "o#"}, legend), Rect{0, 0, 5, 3});
    EXPECT_EQ(rowsOf(canvas.image(), legend), (Rows{"##ooo", "oo###", "oo###"}));
}

TEST(Canvas, ClipsToRectanglesAndPolygonsTogether)
{
    Canvas canvas({6, 4});
    canvas.clip(Rect{1, 0, 4, 4});
    canvas.clip(Path{{{{0, 1}, {6, 1}, {6, 3}, {0, 3}}}});
    canvas.clip(Path{
        {{{0, 0}, {3, 0}, {3, 4}, {0, 4}}, {{4, 0}, {6, 0}, {6, 4}, {4, 4}}}
    });
    canvas.fill({0, 0, 6, 4}, {255, 0, 0});
    canvas.draw(picture({"--"}, legend), Point{2, 1});
    EXPECT_EQ(rowsOf(canvas.image(), legend), (Rows{"......", ".#+.#.", ".##.#.", "......"}));
}

TEST(Canvas, GivesTheCallersStateBack)
{
    Canvas canvas({4, 1});
    {
        const SavedCanvasState saved(canvas);
        canvas.translate({2, 0});
        canvas.scale(2);
        canvas.clip(Rect{0, 0, 0, 0});
        canvas.clip(Path{});
    }
    canvas.fill({0, 0, 1, 1}, {255, 0, 0});
    EXPECT_EQ(rowsOf(canvas.image(), legend), Rows{"#..."});
}
