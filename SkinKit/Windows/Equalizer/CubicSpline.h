#pragma once

#include <cstddef>
#include <span>
#include <vector>

// The smooth curve through a few points: cubic from each to the next, its slope and curvature
// without a jump, and its curvature zero at both ends.
namespace SkinKit::CubicSpline {

// More knots than `maxKnots` are a programming error: the work grows with the cube of their number.
inline constexpr std::size_t maxKnots = 512;
// The farthest x that is sampled.
inline constexpr int maxX = 1 << 20;

// The height of the curve through the knots (xs[i], ys[i]) at x = 0, 1, 2, … up to the last knot;
// xs ascend. Nothing when the last knot is below 0, beyond `maxX` or nowhere (not-a-number).
// Fewer than two knots, or xs and ys of different number, give back ys.
std::vector<double> interpolate(std::span<const double> xs, std::span<const double> ys);

}
