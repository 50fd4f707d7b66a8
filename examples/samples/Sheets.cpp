#include "examples/samples/Sheets.h"

#include "SkinKit/Sprites/GeneratedBaseSkin.h"
#include "SkinKit/Sprites/SkinSprites.h"

#include <stdexcept>

namespace samples {

Painter Sheets::sheet(std::string_view name)
{
    auto found = sheets_.find(name);
    if (found == sheets_.end()) {
        const Size size = SkinKit::GeneratedBaseSkin::size(name);
        auto pixels = SkinKit::PixelBuffer::transparent(size);
        Painter(pixels).fill({0, 0, size.width, size.height}, gutter_);
        found = sheets_.emplace(name, std::move(pixels)).first;
    }
    return Painter(found->second);
}

Painter Sheets::sprite(std::string_view name)
{
    const auto placed = SkinKit::SkinSprites::byName(name);
    if (!placed)
        throw std::invalid_argument("no sprite named " + std::string(name));
    return sheet(placed->sheet).part(placed->sprite.rect());
}

std::map<std::string, Image> Sheets::images() &&
{
    std::map<std::string, Image> images;
    for (auto& [name, pixels] : sheets_)
        images.emplace(name, Image(std::move(pixels), Image::Alpha::any));
    return images;
}

std::map<std::string, Image> drawSheets(const Look& look)
{
    Sheets sheets(look.gutter);
    drawMainSheets(sheets, look);
    drawEqualizerSheets(sheets, look);
    drawPlaylistSheets(sheets, look);
    return std::move(sheets).images();
}

}
