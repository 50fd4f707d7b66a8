#include "tests/support/Collage.h"

#include "SkinKit/Sprites/GeneratedBaseSkin.h"
#include "SkinKit/Sprites/SkinSprites.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace support {

using namespace SkinKit;

namespace {

Image noise(std::string_view sheet)
{
    const Size size = GeneratedBaseSkin::size(sheet);
    std::seed_seq seed(sheet.begin(), sheet.end());
    std::mt19937 random(seed);
    auto pixels = PixelBuffer::uninitialized(size);
    for (Pixel& pixel : std::span(pixels.data(), pixels.count()))
        pixel = static_cast<Pixel>(random()) | 0xFF000000;
    return {std::move(pixels), Image::Alpha::opaque};
}

// Where the first pixel that differs is; nothing when none does.
std::optional<Point> firstDifference(const Image& a, const Image& b)
{
    if (a.size() != b.size())
        return Point{-1, -1};
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel({x, y}) != b.pixel({x, y}))
                return Point{x, y};
    return std::nullopt;
}

}

Skin noisySkin(std::initializer_list<std::string_view> withoutSheets)
{
    Skin skin;
    for (const auto& sheet : SkinSprites::sheets())
        if (std::ranges::find(withoutSheets, sheet.name) == withoutSheets.end())
            skin.sheets.emplace(sheet.name, noise(sheet.name));
    return skin;
}

Collage::Collage(const Skin& skin, Size window)
    : skin_(skin), pixels_(PixelBuffer::transparent(window))
{
}

void Collage::add(const std::optional<Image>& image, Point at, std::optional<Rect> clip)
{
    const Rect window{0, 0, pixels_.size().width, pixels_.size().height};
    for (int y = 0; image && y < image->height(); ++y)
        for (int x = 0; x < image->width(); ++x) {
            const Point place{at.x + x, at.y + y};
            if (contains(clip.value_or(window), place) && contains(window, place) &&
                alphaOf(image->pixel({x, y})) == 255)
                pixels_.row(place.y)[static_cast<std::size_t>(place.x)] = image->pixel({x, y});
        }
}

void Collage::add(const Piece& piece)
{
    add(piece.frame ? skin_.image(piece.sprite, Frame{*piece.frame}) : skin_.image(piece.sprite),
        piece.at, piece.clip);
}

void Collage::add(std::initializer_list<Piece> pieces)
{
    for (const auto& piece : pieces)
        add(piece);
}

void expectSame(const Image& a, const Image& b)
{
    const auto different = firstDifference(a, b);
    EXPECT_FALSE(different) << "first at " << different->x << ", " << different->y;
}

void expectAdded(const Skin& skin, const Image& image, const Image& before,
                 const Collage::Piece& piece)
{
    SCOPED_TRACE(piece.sprite);
    Collage expected(skin, before.size());
    expected.add(before, {0, 0});
    expected.add(piece);
    expectSame(image, std::move(expected).image());
}

}
