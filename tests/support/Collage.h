#pragma once

#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Skin.h"

#include <initializer_list>
#include <optional>
#include <string_view>

// Windows put together pixel by pixel, to hold against what a renderer draws.
namespace support {

// A skin on whose sheets every pixel differs from every other, so that a picture tells where each
// of its pixels is from.
SkinKit::Skin noisySkin(std::initializer_list<std::string_view> withoutSheets = {});

// The pieces of a window one over the other.
class Collage {
public:
    struct Piece {
        std::string_view sprite;
        SkinKit::Point at;
        std::optional<SkinKit::Rect> clip = std::nullopt;
        std::optional<int> frame = std::nullopt;
    };

    explicit Collage(const SkinKit::Skin& skin, SkinKit::Size window = {275, 116});

    // Only opaque pixels show.
    void add(const std::optional<SkinKit::Image>& image, SkinKit::Point at,
             std::optional<SkinKit::Rect> clip = {});
    void add(const Piece& piece);
    void add(std::initializer_list<Piece> pieces);

    SkinKit::Image image() && { return {std::move(pixels_), SkinKit::Image::Alpha::any}; }

private:
    const SkinKit::Skin& skin_;
    SkinKit::PixelBuffer pixels_;
};

// Expects two pictures to be the same, or says where they differ.
void expectSame(const SkinKit::Image& a, const SkinKit::Image& b);

// Expects `image` to be `before` with one sprite of the skin over it.
void expectAdded(const SkinKit::Skin& skin, const SkinKit::Image& image,
                 const SkinKit::Image& before, const Collage::Piece& piece);

}
