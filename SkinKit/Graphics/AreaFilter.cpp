#include "SkinKit/Graphics/AreaFilter.h"

#include "SkinKit/Base/Check.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace SkinKit::AreaFilter {
namespace {

constexpr std::size_t channels = 4;
using Sums = std::vector<double>; // of one row, a channel each

// A source pixel's part in a target pixel.
struct Share {
    std::size_t source;
    double weight;
};

// What each target pixel is made of along one axis. Its weights sum to the part of it that the cell
// covers.
class Axis {
public:
    Axis(int sourceLength, int targetLength, double cellBegin, double cellLength)
    {
        // Where an edge of a target pixel lies in the source.
        const auto inSource = [&](int edge) {
            return std::clamp((edge - cellBegin) * sourceLength / cellLength, 0.0,
                              static_cast<double>(sourceLength));
        };
        for (int target = 0; target < targetLength; ++target) {
            const double begin = inSource(target);
            const double end = inSource(target + 1);
            for (int source = static_cast<int>(begin); source < end; ++source) {
                const double covered =
                    std::min(end, source + 1.0) - std::max<double>(begin, source);
                shares_.push_back(
                    {static_cast<std::size_t>(source), covered * cellLength / sourceLength});
            }
            ends_.push_back(shares_.size());
        }
    }

    std::span<const Share> of(int target) const
    {
        const auto index = static_cast<std::size_t>(target);
        const std::size_t begin = index == 0 ? 0 : ends_[index - 1];
        return std::span(shares_).subspan(begin, ends_[index] - begin);
    }

private:
    std::vector<Share> shares_;
    std::vector<std::size_t> ends_; // of each target pixel's shares
};

void addRow(std::span<const Pixel> row, double weight, Sums& sums)
{
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(row.data());
    for (std::size_t i = 0; i < sums.size(); ++i)
        sums[i] += weight * bytes[i];
}

// The weights are a hair off where they are no binary fractions; an exact half is a half all the
// same. Means that are no halves keep farther from them than this.
unsigned rounded(double mean)
{
    constexpr double hair = 1e-9;
    return static_cast<unsigned>(mean + (0.5 + hair));
}

Pixel meanOf(std::span<const Share> shares, const Sums& sums)
{
    std::array<double, channels> mean{};
    for (const Share& share : shares)
        for (std::size_t i = 0; i < channels; ++i)
            mean[i] += share.weight * sums[share.source * channels + i];
    return packPixel(rounded(mean[0]), rounded(mean[1]), rounded(mean[2]), rounded(mean[3]));
}

bool covers(const RectF& cell, Size size)
{
    return cell.x <= 0 && cell.y <= 0 && cell.x + cell.width >= size.width &&
           cell.y + cell.height >= size.height;
}

}

Image resample(const Image& image, Size size, const RectF& cell)
{
    check(std::isfinite(cell.x) && std::isfinite(cell.y) && std::isfinite(cell.width) &&
              std::isfinite(cell.height) && cell.width > 0 && cell.height > 0,
          "an image is stretched over a finite area");
    auto pixels = PixelBuffer::uninitialized(size);
    const Axis columns(image.width(), size.width, cell.x, cell.width);
    const Axis rows(image.height(), size.height, cell.y, cell.height);

    Sums sums(static_cast<std::size_t>(image.width()) * channels);
    for (int y = 0; y < size.height; ++y) {
        std::ranges::fill(sums, 0.0);
        for (const Share& share : rows.of(y))
            addRow(image.row(static_cast<int>(share.source)), share.weight, sums);
        for (int x = 0; Pixel & target : pixels.row(y))
            target = meanOf(columns.of(x++), sums);
    }
    const bool isOpaque = image.isOpaque() && covers(cell, size);
    return {std::move(pixels), isOpaque ? Image::Alpha::opaque : Image::Alpha::any};
}

}
