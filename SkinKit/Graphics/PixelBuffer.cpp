#include "SkinKit/Graphics/PixelBuffer.h"

#include "SkinKit/Base/Check.h"

#include <climits>
#include <utility>

namespace SkinKit {
namespace {

std::size_t checkedCount(Size size)
{
    check(PixelBuffer::fits(size.width, size.height), "a raster needs a size that can be held");
    return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
}

}

bool PixelBuffer::fits(long long width, long long height)
{
    if (width <= 0 || height <= 0 || width > INT_MAX || height > INT_MAX)
        return false;
    return static_cast<unsigned long long>(width) * static_cast<unsigned long long>(height) <=
           maxBytes / sizeof(Pixel);
}

PixelBuffer PixelBuffer::uninitialized(Size size)
{
    return {size, std::malloc(checkedCount(size) * sizeof(Pixel))};
}

PixelBuffer PixelBuffer::transparent(Size size)
{
    return {size, std::calloc(checkedCount(size), sizeof(Pixel))};
}

PixelBuffer::PixelBuffer(Size size, void* memory)
    : size_(size), pixels_(static_cast<Pixel*>(memory))
{
    checkMemory(memory != nullptr, "no memory for a raster");
}

std::shared_ptr<const Pixel[]> PixelBuffer::share() &&
{
    return std::move(pixels_);
}

}
