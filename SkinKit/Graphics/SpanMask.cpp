#include "SkinKit/Graphics/SpanMask.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>

namespace SkinKit {
namespace {

__extension__ using Wide = __int128;

// Coordinates are held within ±2^60 so that the products below fit 128 bits. An edge that ends
// farther out still crosses the window, if at a slightly other slope.
constexpr std::int64_t farAway = std::int64_t{1} << 60;

std::int64_t bounded(std::int64_t coordinate)
{
    return std::clamp(coordinate, -farAway, farAway);
}

// One edge walked downwards, a pixel row at a time. On the row with centre y + 1/2, `column` is the
// first pixel column whose centre does not lie to the left of the edge:
//
//     ceil(x(y + 1/2) - 1/2) = ceil(numerator / denominator), denominator = 2 * (bottom - top)
//
// kept exact as a quotient and a remainder, so that stepping costs two additions and no division.
class EdgeWalk {
public:
    // The part of the edge from `a` to `b` in rows firstRow … endRow - 1, or nothing when it
    // crosses the centre of none of them. Row y is crossed when top <= y < bottom.
    static std::optional<EdgeWalk> start(Path::Vertex a, Path::Vertex b, int firstRow, int endRow)
    {
        if (a.y == b.y)
            return std::nullopt;
        EdgeWalk walk;
        walk.winding = a.y < b.y ? 1 : -1;
        if (a.y > b.y)
            std::swap(a, b);
        walk.row = static_cast<int>(std::clamp<std::int64_t>(a.y, firstRow, endRow));
        walk.endRow = static_cast<int>(std::clamp<std::int64_t>(b.y, firstRow, endRow));
        if (walk.row >= walk.endRow)
            return std::nullopt;

        const std::int64_t rise = b.y - a.y;
        const std::int64_t run = b.x - a.x;
        const Wide fromTop = 2 * static_cast<Wide>(walk.row) + 1 - 2 * static_cast<Wide>(a.y);
        const Wide numerator = fromTop * run + (2 * static_cast<Wide>(a.x) - 1) * rise;
        walk.denominator_ = 2 * rise;
        walk.setQuotient(numerator);
        walk.setStep(2 * static_cast<Wide>(run));
        return walk;
    }

    void advance()
    {
        ++row;
        column += step_;
        remainder_ += stepRemainder_;
        if (remainder_ > 0) {
            remainder_ -= denominator_;
            ++column;
        }
    }

    int row = 0;
    int endRow = 0;
    int winding = 0;
    std::int64_t column = 0;

private:
    // Rounded up: the remainder lies in -denominator + 1 … 0.
    void setQuotient(Wide numerator)
    {
        Wide quotient = numerator / denominator_;
        if (numerator % denominator_ > 0)
            ++quotient;
        column = static_cast<std::int64_t>(quotient);
        remainder_ = static_cast<std::int64_t>(numerator - quotient * denominator_);
    }
    // Rounded down: the remainder lies in 0 … denominator - 1.
    void setStep(Wide numerator)
    {
        Wide quotient = numerator / denominator_;
        if (numerator % denominator_ < 0)
            --quotient;
        step_ = static_cast<std::int64_t>(quotient);
        stepRemainder_ = static_cast<std::int64_t>(numerator - quotient * denominator_);
    }

    std::int64_t denominator_ = 1;
    std::int64_t remainder_ = 0;
    std::int64_t step_ = 0;
    std::int64_t stepRemainder_ = 0;
};

// How the winding number changes from column to column, for some rows of the bounds at once. Edges
// are added one by one, so that nothing is kept or sorted for a polygon of millions of points.
class WindingTable {
public:
    explicit WindingTable(const Rect& rows)
        : rows_(rows), pitch_(static_cast<std::size_t>(rows.width) + 1),
          changes_(pitch_ * static_cast<std::size_t>(rows.height))
    {
    }

    void add(const Path& path)
    {
        for (const auto& polygon : path.polygons)
            for (std::size_t i = 0; i < polygon.size(); ++i)
                addEdge(polygon[i], polygon[i + 1 < polygon.size() ? i + 1 : 0]);
    }

    // Columns past the last one of row y are not looked at; its runs go to `spans`.
    void appendSpans(int y, std::vector<SpanMask::Span>& spans) const
    {
        const int* const changes = changes_.data() + offsetOf(y);
        int winding = 0;
        for (int x = 0; x < rows_.width; ++x) {
            const bool wasInside = winding != 0;
            winding += changes[x];
            if (!wasInside && winding != 0)
                spans.push_back({rows_.x + x, rows_.right()});
            else if (wasInside && winding == 0)
                spans.back().end = rows_.x + x;
        }
    }

private:
    std::size_t offsetOf(int y) const { return static_cast<std::size_t>(y - rows_.y) * pitch_; }

    void addEdge(const Path::Vertex& from, const Path::Vertex& to)
    {
        auto edge = EdgeWalk::start({bounded(from.x), bounded(from.y)},
                                    {bounded(to.x), bounded(to.y)}, rows_.y, rows_.bottom());
        if (!edge)
            return;
        for (int* row = changes_.data() + offsetOf(edge->row); edge->row < edge->endRow;
             row += pitch_, edge->advance())
            row[std::clamp<std::int64_t>(edge->column - rows_.x, 0, rows_.width)] += edge->winding;
    }

    Rect rows_;
    std::size_t pitch_;
    std::vector<int> changes_;
};

}

SpanMask SpanMask::fill(const Path& path, const Rect& bounds)
{
    // All rows of an ordinary window at once; of a giant one a few megabytes' worth at a time.
    constexpr int maxEntries = 1 << 22;
    const int rowsAtOnce = std::max(1, maxEntries / (bounds.width + 1));

    SpanMask mask;
    mask.top_ = bounds.y;
    mask.firstSpan_.push_back(0);
    for (int top = bounds.y; top < bounds.bottom(); top += rowsAtOnce) {
        const int rows = std::min(rowsAtOnce, bounds.bottom() - top);
        WindingTable table({bounds.x, top, bounds.width, rows});
        table.add(path);
        for (int y = top; y < top + rows; ++y) {
            table.appendSpans(y, mask.spans_);
            mask.firstSpan_.push_back(mask.spans_.size());
        }
    }
    return mask;
}

SpanMask SpanMask::intersected(const SpanMask& other) const
{
    SpanMask both;
    both.top_ = top_;
    both.firstSpan_.push_back(0);
    const int rows = static_cast<int>(firstSpan_.size()) - 1;
    for (int y = top_; y < top_ + rows; ++y) {
        const auto ours = row(y);
        const auto theirs = other.row(y);
        for (auto a = ours.begin(), b = theirs.begin(); a != ours.end() && b != theirs.end();) {
            const Span common{std::max(a->begin, b->begin), std::min(a->end, b->end)};
            if (common.begin < common.end)
                both.spans_.push_back(common);
            a->end < b->end ? ++a : ++b;
        }
        both.firstSpan_.push_back(both.spans_.size());
    }
    return both;
}

std::span<const SpanMask::Span> SpanMask::row(int y) const
{
    const std::int64_t index = std::int64_t{y} - top_;
    if (index < 0 || index + 1 >= std::ssize(firstSpan_))
        return {};
    const auto begin = firstSpan_[static_cast<std::size_t>(index)];
    const auto end = firstSpan_[static_cast<std::size_t>(index) + 1];
    return {spans_.data() + begin, end - begin};
}

}
