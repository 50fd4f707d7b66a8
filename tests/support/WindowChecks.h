#pragma once

#include "SkinKit/Skin.h"

#include <initializer_list>
#include <optional>
#include <string_view>

// Checks of what a window shows.
namespace support {

// A skin with random sheets: no two pixels are alike, so that a pixel shows where it comes from.
SkinKit::Skin noisySkin(std::initializer_list<std::string_view> withoutSheets = {});

// A sprite at a position of a window.
struct Piece {
    std::string_view sprite;
    SkinKit::Point at;
    std::optional<SkinKit::Rect> clip = std::nullopt; // in window pixels
    std::optional<int> frame = std::nullopt;
};

// Expects `window` to show the piece of the skin.
void expectShown(const SkinKit::Image& window, const SkinKit::Skin& skin, const Piece& piece);

}
