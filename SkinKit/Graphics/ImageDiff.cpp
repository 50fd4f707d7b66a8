#include "SkinKit/Graphics/ImageDiff.h"

#include "SkinKit/Graphics/Simd.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace SkinKit::ImageDiff {
namespace {

constexpr Pixel marked = packPixel(255, 0, 255);
constexpr Pixel colorBits = 0x00FFFFFF;

struct Columns {
    int begin;
    int end;
};

// The columns of row y that lie in any of the rectangles, as runs from left to right.
std::vector<Columns> ignoredColumns(std::span<const Rect> rects, int y, int width)
{
    std::vector<Columns> runs;
    for (const Rect& rect : rects) {
        const auto right = std::int64_t{rect.x} + rect.width;
        const auto bottom = std::int64_t{rect.y} + rect.height;
        const Columns run{std::max(rect.x, 0),
                          static_cast<int>(std::clamp<std::int64_t>(right, 0, width))};
        if (y >= rect.y && y < bottom && run.begin < run.end)
            runs.push_back(run);
    }
    std::ranges::sort(runs, {}, &Columns::begin);
    std::vector<Columns> merged;
    for (const Columns& run : runs) {
        if (!merged.empty() && run.begin <= merged.back().end)
            merged.back().end = std::max(merged.back().end, run.end);
        else
            merged.push_back(run);
    }
    return merged;
}

class Comparison {
public:
    Comparison(const Image& ours, const Image& reference, std::uint8_t tolerance)
        : ours_(ours), reference_(reference), tolerance_(tolerance),
          common_{std::min(ours.width(), reference.width()),
                  std::min(ours.height(), reference.height())}
    {
    }

    Result run(std::span<const Rect> ignoring)
    {
        for (int y = 0; y < common_.height; ++y) {
            int x = 0;
            if (!ignoring.empty()) {
                for (const auto& [begin, end] : ignoredColumns(ignoring, y, common_.width)) {
                    addOutside(y, {x, begin});
                    add(y, {begin, end});
                    x = end;
                }
            }
            addOutside(y, {x, common_.width});
        }
        result_.skippedTransparent =
            std::int64_t{ours_.width()} * ours_.height() - result_.compared;
        return result_;
    }

private:
    Simd::DifferenceCounts add(int y, Columns columns)
    {
        const auto begin = static_cast<std::size_t>(columns.begin);
        const auto counts =
            Simd::countDifferences(ours_.row(y).data() + begin, reference_.row(y).data() + begin,
                                   static_cast<std::size_t>(columns.end) - begin, tolerance_);
        result_.compared += counts.compared;
        result_.differing += counts.differing;
        result_.beyondTolerance += counts.beyondTolerance;
        return counts;
    }

    void addOutside(int y, Columns columns)
    {
        const auto counts = add(y, columns);
        result_.differingOutsideIgnored += counts.differing;
        result_.beyondToleranceOutsideIgnored += counts.beyondTolerance;
    }

    const Image& ours_;
    const Image& reference_;
    std::uint8_t tolerance_;
    Size common_;
    Result result_;
};

}

Result compare(const Image& ours, const Image& reference, std::uint8_t tolerance,
               std::span<const Rect> ignoring)
{
    return Comparison(ours, reference, tolerance).run(ignoring);
}

Image diffImage(const Image& ours, const Image& reference)
{
    auto pixels = PixelBuffer::uninitialized(ours.size());
    for (int y = 0; y < ours.height(); ++y) {
        const auto row = pixels.row(y);
        std::ranges::copy(ours.row(y), row.begin());
        if (y >= reference.height())
            continue;
        const auto other = reference.row(y);
        for (std::size_t x = 0; x < std::min(row.size(), other.size()); ++x)
            if (alphaOf(row[x]) != 0 && alphaOf(other[x]) != 0 &&
                ((row[x] ^ other[x]) & colorBits) != 0)
                row[x] = marked;
    }
    return {std::move(pixels), ours.isOpaque() ? Image::Alpha::opaque : Image::Alpha::any};
}

}
