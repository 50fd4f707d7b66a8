#include "tests/support/WindowChecks.h"

#include "SkinKit/Sprites/GeneratedBaseSkin.h"
#include "SkinKit/Sprites/SkinSprites.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace support {

using namespace SkinKit;

Skin noisySkin(std::initializer_list<std::string_view> withoutSheets)
{
    Skin skin;
    std::mt19937 random(7);
    for (const auto& sheet : SkinSprites::sheets()) {
        auto pixels = PixelBuffer::uninitialized(GeneratedBaseSkin::size(sheet.name));
        for (Pixel& pixel : std::span(pixels.data(), pixels.count()))
            pixel = static_cast<Pixel>(random()) | 0xFF000000;
        if (std::ranges::find(withoutSheets, sheet.name) == withoutSheets.end())
            skin.sheets.emplace(sheet.name, Image(std::move(pixels), Image::Alpha::opaque));
    }
    return skin;
}

void expectShown(const Image& window, const Skin& skin, const Piece& piece)
{
    const auto image =
        piece.frame ? skin.image(piece.sprite, Frame{*piece.frame}) : skin.image(piece.sprite);
    ASSERT_TRUE(image) << piece.sprite;
    const Rect whole{piece.at.x, piece.at.y, image->width(), image->height()};
    const Rect shown = intersection(piece.clip.value_or(whole), whole);
    EXPECT_EQ(window.crop(shown),
              image->crop({shown.x - whole.x, shown.y - whole.y, shown.width, shown.height}))
        << piece.sprite << " at " << whole.x << ", " << whole.y;
}

}
