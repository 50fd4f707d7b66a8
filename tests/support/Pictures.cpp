#include "tests/support/Pictures.h"

#include <algorithm>

namespace support {

using SkinKit::Image;

Image picture(const std::vector<std::string_view>& rows, const Legend& legend)
{
    auto pixels = SkinKit::PixelBuffer::uncleared(
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
