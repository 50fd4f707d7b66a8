#pragma once

#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Graphics/Image.h"

#include <functional>

// What holds of every window that can be drawn.
namespace support {

// Expects `large` to show each pixel of `small` as a square of `scale` pixels.
void expectMagnified(const SkinKit::Image& large, const SkinKit::Image& small, int scale);

// Expects `cut` to be `whole` where the mask is not transparent, and nothing else.
void expectCut(const SkinKit::Image& cut, const SkinKit::Image& whole, const SkinKit::Image& mask);

// Expects `draw` to put `window` onto the canvas at a place, to touch nothing beside it and to
// leave the canvas's scale, origin and clip as they were.
void expectDrawsAt(SkinKit::Point place, const SkinKit::Image& window,
                   const std::function<void(SkinKit::Canvas&)>& draw);

}
