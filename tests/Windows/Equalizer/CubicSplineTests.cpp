#include "SkinKit/Windows/Equalizer/CubicSpline.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace SkinKit;
using CubicSpline::interpolate;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

void expectNear(const std::vector<double>& actual, const std::vector<double>& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(actual[i], expected[i], 1e-12) << "at " << i;
}

}

TEST(CubicSpline, PassesThroughItsKnots)
{
    const std::vector<double> xs{0, 3, 4, 11, 20};
    const std::vector<double> ys{5, -2, 7, 7, 0.5};
    const auto heights = interpolate(xs, ys);
    ASSERT_EQ(heights.size(), 21U);
    for (std::size_t i = 0; i < xs.size(); ++i)
        EXPECT_NEAR(heights[static_cast<std::size_t>(xs[i])], ys[i], 1e-12) << xs[i];
}

// Knots 0, 1, 0 at x = 0, 2, 4: on the left half 3x/4 - x³/16, the right half its mirror image.
TEST(CubicSpline, FollowsTheCurveWorkedOutByHand)
{
    expectNear(interpolate(std::vector{0.0, 2.0, 4.0}, std::vector{0.0, 1.0, 0.0}),
               {0, 0.6875, 1, 0.6875, 0});
}

TEST(CubicSpline, KeepsAStraightLineStraightFromZeroOn)
{
    expectNear(interpolate(std::vector{0.0, 1.0, 4.0, 6.0}, std::vector{1.0, 3.0, 9.0, 13.0}),
               {1, 3, 5, 7, 9, 11, 13});
    // Two knots at 2 and 4: a line that also goes on to the left.
    expectNear(interpolate(std::vector{2.0, 4.0}, std::vector{0.0, 4.0}), {-4, -2, 0, 2, 4});
    expectNear(interpolate(std::vector{-2.0, 2.5}, std::vector{0.0, 9.0}), {4, 6, 8});
}

// The curvature is the second difference of samples that lie close together.
TEST(CubicSpline, BendsWithoutAJumpAndNotAtAllAtItsEnds)
{
    std::vector<double> xs, ys;
    for (int i = 0; i < 6; ++i) {
        xs.push_back(1000 * i);
        ys.push_back(1e6 * std::sin(i * i));
    }
    const auto heights = interpolate(xs, ys);
    const auto curvature = [&](std::size_t x) {
        return heights[x - 1] - 2 * heights[x] + heights[x + 1];
    };
    double greatest = 0;
    double greatestJump = 0;
    for (std::size_t x = 1; x + 2 < heights.size(); ++x) {
        greatest = std::max(greatest, std::abs(curvature(x)));
        greatestJump = std::max(greatestJump, std::abs(curvature(x + 1) - curvature(x)));
    }
    EXPECT_LT(greatestJump, greatest / 100);
    EXPECT_LT(std::abs(curvature(1)), greatest / 100);
    EXPECT_LT(std::abs(curvature(heights.size() - 2)), greatest / 100);
}

TEST(CubicSpline, HasNothingToSampleWhereTheLastKnotIsNoPlace)
{
    for (const double last : {-1.0, -infinity, infinity, std::nan(""), CubicSpline::maxX + 1.0})
        EXPECT_TRUE(interpolate(std::vector{-9.0, last}, std::vector{1.0, 2.0}).empty()) << last;
}

TEST(CubicSpline, GivesBackTheHeightsOfWhatIsNoCurve)
{
    const std::vector<double> ys{4, 7};
    EXPECT_EQ(interpolate(std::vector{1.0}, ys), ys);
    EXPECT_EQ(interpolate(std::vector{0.0, 1.0, 2.0}, ys), ys);
    EXPECT_EQ(interpolate(std::vector{5.0}, std::vector{3.0}), std::vector{3.0});
    EXPECT_TRUE(interpolate({}, {}).empty());
}

// Where knots fall back, a row of zeros is a greater pivot than one of negative numbers, and there
// is no curve. Where the sign does not decide, there is one.
TEST(CubicSpline, ChoosesPivotsBySign)
{
    const std::vector<double> ys{0, 1, 0};
    for (const double height : interpolate(std::vector{4.0, 2.0, 0.0}, ys))
        EXPECT_FALSE(std::isfinite(height));
    for (const double height : interpolate(std::vector{0.0, 4.0, 2.0}, ys))
        EXPECT_TRUE(std::isfinite(height));
}

TEST(CubicSpline, RefusesMoreKnotsThanItCanSolve)
{
    const std::vector<double> many(CubicSpline::maxKnots + 1, 1);
    EXPECT_DEATH(interpolate(many, many), "knots");
}
