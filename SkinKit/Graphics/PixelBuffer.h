#pragma once

#include "SkinKit/Graphics/Geometry.h"
#include "SkinKit/Graphics/Pixel.h"

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <span>

namespace SkinKit {

// The memory of one raster while it is being written: width × height pixels, top row first, no row
// padding. A buffer that exists has a positive size. Not having the memory for it stops the
// process; whoever takes sizes from outside bounds them first, with `fits`.
class PixelBuffer {
public:
    // The most bytes one raster may hold.
    static constexpr std::size_t maxBytes = std::size_t{2} << 30;

    // Whether a raster of this size can exist at all.
    static bool fits(long long width, long long height);

    // Pixels not set: for rasters that are written in whole.
    static PixelBuffer uninitialized(Size size);
    // Every pixel transparent. Large ones come as fresh pages, so nothing is touched here.
    static PixelBuffer transparent(Size size);

    Size size() const { return size_; }
    std::size_t count() const
    {
        return static_cast<std::size_t>(size_.width) * static_cast<std::size_t>(size_.height);
    }
    Pixel* data() { return pixels_.get(); }
    const Pixel* data() const { return pixels_.get(); }
    std::span<Pixel> row(int y)
    {
        const auto width = static_cast<std::size_t>(size_.width);
        return {pixels_.get() + static_cast<std::size_t>(y) * width, width};
    }
    std::span<const Pixel> row(int y) const
    {
        const auto width = static_cast<std::size_t>(size_.width);
        return {pixels_.get() + static_cast<std::size_t>(y) * width, width};
    }

    // Hands the memory over; the buffer must not be used afterwards.
    std::shared_ptr<const Pixel[]> share() &&;

private:
    struct Free {
        void operator()(Pixel* pixels) const { std::free(pixels); }
    };

    PixelBuffer(Size size, void* memory);

    Size size_;
    std::unique_ptr<Pixel[], Free> pixels_;
};

}
