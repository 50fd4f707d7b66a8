#include "tests/support/Pictures.h"

#include <algorithm>

namespace support {

using SkinKit::Image;

Image picture(const std::vector<std::string_view>& rows, const Legend& legend)
{
    auto pixels = SkinKit::PixelBuffer::uninitialized(
        {static_cast<int>(rows.at(0).size()), static_cast<int>(rows.size())});
    bool opaque = true;
    for (int y = 0; y < pixels.size().height; ++y)
        for (int x = 0; x < pixels.size().width; ++x) {
            const auto pixel =
                legend.at(rows.at(static_cast<std::size_t>(y)).at(static_cast<std::size_t>(x)));
            pixels.row(y)[static_cast<std::size_t>(x)] = pixel;
            opaque = opaque && SkinKit::alphaOf(pixel) == 255;
        }
    return {std::move(pixels), opaque ? Image::Alpha::opaque : Image::Alpha::any};
}

SkinKit::Pixel markOf(SkinKit::Point place)
{
    return SkinKit::packPixel(static_cast<unsigned>(place.x & 255),
                              static_cast<unsigned>(place.y & 255),
                              static_cast<unsigned>(place.x >> 8 | place.y >> 8 << 4));
}

Image markedImage(SkinKit::Size size)
{
    auto pixels = SkinKit::PixelBuffer::uninitialized(size);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            pixels.row(y)[static_cast<std::size_t>(x)] = markOf({x, y});
    return {std::move(pixels), Image::Alpha::opaque};
}

std::vector<std::string> rowsOf(const Image& image, const Legend& legend)
{
    std::vector<std::string> rows;
    for (int y = 0; y < image.height(); ++y) {
        auto& row = rows.emplace_back();
        for (const auto pixel : image.row(y)) {
            const auto found = std::ranges::find_if(
                legend, [pixel](const auto& entry) { return entry.second == pixel; });
            row += found == legend.end() ? '?' : found->first;
        }
    }
    return rows;
}

}
