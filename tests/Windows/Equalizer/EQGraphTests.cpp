#include "SkinKit/Windows/Equalizer/CubicSpline.h"
#include "SkinKit/Windows/Equalizer/EQGraph.h"
#include "tests/support/Table.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace SkinKit;
using CubicSpline::interpolate;
using support::expectTable;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

}

// Knots 0, 1, 0 at x = 0, 2, 4: on the left half 3x/4 - x³/16, the right half its mirror image.
TEST(CubicSpline, FollowsTheCurveWorkedOutByHand)
{
    const auto heights = interpolate(std::vector{0.0, 2.0, 4.0}, std::vector{0.0, 1.0, 0.0});
    EXPECT_EQ(heights, (std::vector{0.0, 0.6875, 1.0, 0.6875, 0.0}));
    // A straight line from 0 on, also in front of the first knot.
    const std::vector<double> line{-4, -2, 0, 2, 4};
    EXPECT_EQ(interpolate(std::vector{2.0, 4.0}, std::vector{0.0, 4.0}), line);
}

// clang-format off
TEST(EQGraph, PutsHighBandsHighAndAHighPreampLow)
{
    expectTable<double, int>(EQGraph::knotYForValue, {
        {-4, 18}, {0, 18}, {25, 14}, {50, 9}, {97.3, 0}, {100, 0}, {infinity, 0}, {NAN, 18},
    });
    expectTable<double, int>(EQGraph::preampLineYForValue, {
        {-4, 0}, {0, 0}, {25, 5}, {50, 9}, {97.3, 18}, {100, 18}, {infinity, 18}, {NAN, 0},
    });
}
// clang-format on

TEST(EQGraph, CurvesThroughItsBandsAndStaysInside)
{
    const std::vector values{0., 30., 0., 100., 100., 0., 0., 65., 1e300, std::nan("")};
    const auto rows = EQGraph::curve(values);
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(rows[12 * i], EQGraph::knotYForValue(values[i])) << values[i];
    EXPECT_TRUE(std::ranges::all_of(rows, [](int y) { return y >= 0 && y <= 18; }));
    EXPECT_EQ(EQGraph::curve({}), EQGraph::curve(std::vector(10, 50.0)));
}

TEST(EQGraph, NeedsAColourForEveryRow)
{
    Skin skin;
    for (const int height : {312, 313}) {
        const Image sheet(PixelBuffer::transparent({275, height}), Image::Alpha::any);
        skin.sheets.insert_or_assign("EQMAIN", sheet);
        const auto graph = EQGraph::render(skin, {}, 50);
        EXPECT_EQ(graph.has_value(), height == 313);
        EXPECT_TRUE(!graph || graph->pixel({60, 9}) == packPixel(0, 0, 0)); // opaque all the same
    }
}
