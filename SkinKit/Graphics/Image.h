#pragma once

#include "SkinKit/Graphics/PixelBuffer.h"

#include <memory>
#include <optional>
#include <span>

namespace SkinKit {

// A finished raster: 8-bit premultiplied RGBA, top row first. Its pixels never change and are
// shared, so a copy or a crop costs no pixel copy and any number of threads may read it. An image
// that exists has a positive size.
class Image {
public:
    // Whether a picture may show what lies below it.
    enum class Alpha {
        opaque, // the maker vouches that every alpha is 255; drawing then copies instead of
                // blending
        any,
    };

    // Takes the buffer over; its pixels are not copied.
    Image(PixelBuffer&& pixels, Alpha alpha);

    Size size() const { return size_; }
    int width() const { return size_.width; }
    int height() const { return size_.height; }
    bool isOpaque() const { return alpha_ == Alpha::opaque; }

    // Row y of 0 … height() - 1, from left to right. Valid while this image or a copy lives.
    std::span<const Pixel> row(int y) const
    {
        return {first_ + static_cast<std::size_t>(y) * stride_,
                static_cast<std::size_t>(size_.width)};
    }
    // One pixel; it must lie inside.
    Pixel pixel(Point at) const { return row(at.y)[static_cast<std::size_t>(at.x)]; }

    // The part of this image inside `rect` (image pixels), or nothing when none of it is.
    std::optional<Image> crop(const Rect& rect) const;

    // Same size, same pixels.
    friend bool operator==(const Image& a, const Image& b);

private:
    Size size_;
    Alpha alpha_;
    std::size_t stride_; // pixels from a row to the next
    const Pixel* first_; // top left pixel, inside pixels_
    std::shared_ptr<const Pixel[]> pixels_;
};

}
