#include "SkinKit/Graphics/Image.h"

#include <algorithm>
#include <utility>

namespace SkinKit {

Image::Image(PixelBuffer&& pixels, Alpha alpha)
    : size_(pixels.size()), alpha_(alpha), stride_(static_cast<std::size_t>(pixels.size().width)),
      first_(pixels.data()), pixels_(std::move(pixels).share())
{
}

std::optional<Image> Image::crop(const Rect& rect) const
{
    const Rect inside = intersection(rect, {0, 0, size_.width, size_.height});
    if (inside.isEmpty())
        return std::nullopt;

    Image part = *this;
    part.size_ = inside.size();
    part.first_ +=
        static_cast<std::size_t>(inside.y) * stride_ + static_cast<std::size_t>(inside.x);
    return part;
}

bool operator==(const Image& a, const Image& b)
{
    if (a.size_ != b.size_)
        return false;
    for (int y = 0; y < a.height(); ++y)
        if (!std::ranges::equal(a.row(y), b.row(y)))
            return false;
    return true;
}

}
