#include "SkinKit/Windows/Equalizer/EQGraph.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

using namespace SkinKit;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr Rect stripRect{115, 294, 1, 19};
constexpr RGBColor background{1, 2, 3};
constexpr RGBColor preampColor{200, 201, 202};

// The colour of a row, in the middle of the strip half transparent.
Pixel stripPixel(int row)
{
    const auto value = static_cast<unsigned>(row);
    return packPixel(10 + value, 20 + value, 30, row == 9 ? 128 : 255);
}

Pixel lineColor(int row)
{
    return stripPixel(row) | packPixel(0, 0, 0);
}

// The equalizer's sheet, of one colour but for the strip of line colours and the preamp's line.
Skin skinWithSheet(Size size = {275, 315})
{
    auto pixels = PixelBuffer::uninitialized(size);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x) {
            Pixel& pixel = pixels.row(y)[static_cast<std::size_t>(x)];
            pixel = opaquePixel(y == 314 ? preampColor : background);
            if (contains(stripRect, Point{x, y}))
                pixel = stripPixel(y - stripRect.y);
        }
    Skin skin;
    skin.sheets.emplace("EQMAIN", Image(std::move(pixels), Image::Alpha::any));
    return skin;
}

// The rows of a column that are neither background nor the preamp's line.
std::vector<int> curveRows(const Image& graph, int column)
{
    std::vector<int> rows;
    for (int y = 0; y < graph.height(); ++y) {
        const Pixel pixel = graph.pixel({column, y});
        if (pixel != opaquePixel(background) && pixel != opaquePixel(preampColor))
            rows.push_back(y);
    }
    return rows;
}

}

TEST(EQGraph, PutsHighBandsHighAndAHighPreampLow)
{
    const std::tuple<double, int, int> rows[] = {
        {-4,         18, 0 },
        {0,          18, 0 },
        {25,         14, 5 }, // 13.5 and 4.5 round up
        {50,         9,  9 },
        {97.3,       0,  18},
        {100,        0,  18},
        {1e300,      0,  18},
        {infinity,   0,  18},
        {-infinity,  18, 0 },
        {notANumber, 18, 0 },
    };
    for (const auto& [value, knot, preamp] : rows) {
        EXPECT_EQ(EQGraph::knotYForValue(value), knot) << value;
        EXPECT_EQ(EQGraph::preampLineYForValue(value), preamp) << value;
    }
}

TEST(EQGraph, CurvesThroughItsBands)
{
    std::mt19937 random(7);
    for (int round = 0; round < 100; ++round) {
        std::array<double, 10> values{};
        for (double& value : values)
            value = std::uniform_real_distribution(0.0, 100.0)(random);
        const auto rows = EQGraph::curve(values);
        for (std::size_t i = 0; i < values.size(); ++i)
            EXPECT_EQ(rows[12 * i], EQGraph::knotYForValue(values[i])) << values[i];
        EXPECT_TRUE(std::ranges::all_of(rows, [](int y) { return y >= 0 && y <= 18; }));
    }
}

TEST(EQGraph, TakesMissingBandsForTheMiddleAndIgnoresMoreThanTen)
{
    const auto flat = EQGraph::curve(std::vector(10, 50.0));
    EXPECT_TRUE(std::ranges::all_of(flat, [](int y) { return y == 9; }));
    EXPECT_EQ(EQGraph::curve({}), flat);
    EXPECT_EQ(EQGraph::curve(std::vector{50.0, 50.0}), flat);
    EXPECT_EQ(EQGraph::curve(std::vector{50., 50., 50., 50., 50., 50., 50., 50., 50., 50., 0.}),
              flat);
}

TEST(EQGraph, HoldsTheCurveInsideWhereItOvershoots)
{
    // Two bands at the top between others at the bottom: the curve would rise above the top.
    const auto rows = EQGraph::curve(std::vector{0., 0., 0., 100., 100., 0., 0., 0., 0., 0.});
    EXPECT_EQ(rows[3 * 12 + 6], 0);
    EXPECT_EQ(rows[108], 18);
    const auto beyond = EQGraph::curve(std::vector{-1e300, infinity, -infinity, notANumber, 1e300,
                                                   -1e300, infinity, -infinity, notANumber, 1e300});
    EXPECT_EQ(beyond, EQGraph::curve(std::vector{0., 100., 0., 0., 100., 0., 100., 0., 0., 100.}));
}

TEST(EQGraph, JoinsStepsIntoUnbrokenRunsInTheColoursOfTheirRows)
{
    const std::vector values{0., 0., 0., 0., 100., 0., 0., 0., 0., 0.};
    const auto curve = EQGraph::curve(values);
    const auto graph = EQGraph::render(skinWithSheet(), values, 0);
    ASSERT_TRUE(graph);
    EXPECT_EQ(graph->size(), (Size{113, 19}));
    EXPECT_EQ(curve[48], 0);
    for (const int x : {0, 1, 111, 112})
        EXPECT_TRUE(curveRows(*graph, x).empty()) << x;
    for (int x = 0; x < EQGraph::columnCount; ++x) {
        const int y = curve[static_cast<std::size_t>(x)];
        const int before = x == 0 ? y : curve[static_cast<std::size_t>(x - 1)];
        std::vector<int> run;
        for (int row = std::min(before, y); row <= std::max(before, y); ++row)
            run.push_back(row);
        EXPECT_EQ(curveRows(*graph, x + 2), run) << x;
        for (const int row : run) // whatever the colour's alpha
            EXPECT_EQ(graph->pixel({x + 2, row}), lineColor(row)) << x;
    }
}

TEST(EQGraph, DrawsThePreampsLineBelowTheCurve)
{
    for (const auto& [preamp, row] : {
             std::pair{0.0,   0 },
             {50.0,  9 },
             {100.0, 18}
    }) {
        const auto graph = EQGraph::render(skinWithSheet(), std::vector(10, 50.0), preamp);
        ASSERT_TRUE(graph);
        for (int y = 0; y < 19; ++y)
            EXPECT_EQ(graph->pixel({0, y}), opaquePixel(y == row ? preampColor : background));
        EXPECT_EQ(graph->pixel({60, 9}), lineColor(9));
    }
}

TEST(EQGraph, NeedsAColourForEveryRowButNothingElse)
{
    // Sheets that end in the strip, or with it: no background beside it, no preamp's line.
    EXPECT_FALSE(EQGraph::render(skinWithSheet({275, 312}), {}, 50));
    EXPECT_FALSE(EQGraph::render(skinWithSheet({115, 315}), {}, 50));
    EXPECT_FALSE(EQGraph::render(Skin{}, {}, 50));
    const auto graph = EQGraph::render(skinWithSheet({275, 313}), {}, 50);
    ASSERT_TRUE(graph);
    EXPECT_EQ(graph->pixel({0, 9}), opaquePixel(background));
}
