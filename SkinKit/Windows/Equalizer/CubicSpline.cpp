#include "SkinKit/Windows/Equalizer/CubicSpline.h"

#include "SkinKit/Base/Check.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace SkinKit::CubicSpline {
namespace {

// A system of n linear equations: n rows of n coefficients, and in the last column what they give.
class Equations {
public:
    explicit Equations(std::size_t count) : count_(count), entries_(count * (count + 1)) {}

    std::size_t count() const { return count_; }
    std::span<double> row(std::size_t index)
    {
        return std::span(entries_).subspan(index * (count_ + 1), count_ + 1);
    }

private:
    std::size_t count_;
    std::vector<double> entries_;
};

// The row from `column` downwards whose entry in the column is greatest, the first of equals. Signs
// count: curves of knots that do not ascend depend on it.
std::size_t pivotRow(Equations& equations, std::size_t column)
{
    std::size_t pivot = column;
    double greatest = -std::numeric_limits<double>::infinity();
    for (std::size_t r = column; r < equations.count(); ++r)
        if (equations.row(r)[column] > greatest) {
            greatest = equations.row(r)[column];
            pivot = r;
        }
    return pivot;
}

// Gaussian elimination, then substitution from the last row up.
std::vector<double> solve(Equations equations)
{
    const std::size_t n = equations.count();
    for (std::size_t column = 0; column < n; ++column) {
        const auto pivot = equations.row(column);
        if (const auto found = pivotRow(equations, column); found != column)
            std::ranges::swap_ranges(pivot, equations.row(found));
        for (std::size_t r = column + 1; r < n; ++r) {
            const auto row = equations.row(r);
            const double factor = row[column] / pivot[column];
            for (std::size_t i = column; i <= n; ++i)
                row[i] -= factor * pivot[i];
        }
    }

    std::vector<double> solution(n);
    for (std::size_t r = n; r-- > 0;) {
        const auto row = equations.row(r);
        double rest = row[n];
        for (std::size_t i = r + 1; i < n; ++i)
            rest -= row[i] * solution[i];
        solution[r] = rest / row[r];
    }
    return solution;
}

// The slope of the curve at each knot. Where two segments meet their curvatures are equal; at both
// ends there is none.
std::vector<double> naturalKs(std::span<const double> xs, std::span<const double> ys)
{
    const auto width = [xs](std::size_t segment) { return xs[segment] - xs[segment - 1]; };
    const auto rise = [ys](std::size_t segment) { return ys[segment] - ys[segment - 1]; };
    const auto square = [](double value) { return value * value; };
    const std::size_t n = xs.size();
    const std::size_t last = n - 1;
    Equations equations(n);

    const auto first = equations.row(0);
    first[0] = 2 / width(1);
    first[1] = 1 / width(1);
    first[n] = 3 * rise(1) / square(width(1));
    for (std::size_t i = 1; i < last; ++i) {
        const auto row = equations.row(i);
        row[i - 1] = 1 / width(i);
        row[i] = 2 * (1 / width(i) + 1 / width(i + 1));
        row[i + 1] = 1 / width(i + 1);
        row[n] = 3 * (rise(i) / square(width(i)) + rise(i + 1) / square(width(i + 1)));
    }
    const auto end = equations.row(last);
    end[last - 1] = 1 / width(last);
    end[last] = 2 / width(last);
    end[n] = 3 * rise(last) / square(width(last));
    return solve(std::move(equations));
}

}

std::vector<double> interpolate(std::span<const double> xs, std::span<const double> ys)
{
    if (xs.size() < 2 || xs.size() != ys.size())
        return {ys.begin(), ys.end()};
    check(xs.size() <= maxKnots, "too many knots for a curve");
    if (!(xs.back() >= 0 && xs.back() <= maxX))
        return {};

    const auto slopes = naturalKs(xs, ys);
    std::vector<double> heights;
    const auto count = static_cast<std::size_t>(xs.back()) + 1;
    heights.reserve(count);
    std::size_t i = 1; // the first knot at x or behind it
    for (std::size_t place = 0; place < count; ++place) {
        const auto x = static_cast<double>(place);
        while (!(xs[i] >= x))
            ++i;
        const double width = xs[i] - xs[i - 1];
        const double rise = ys[i] - ys[i - 1];
        const double t = (x - xs[i - 1]) / width;
        const double a = slopes[i - 1] * width - rise;
        const double b = rise - slopes[i] * width;
        heights.push_back((1 - t) * ys[i - 1] + t * ys[i] + t * (1 - t) * (a * (1 - t) + b * t));
    }
    return heights;
}

}
