#pragma once

#include "examples/samples/Look.h"

#include <optional>
#include <string_view>

// The parts that windows have in common, in a given look.
namespace samples {

inline constexpr int titleHeight = 14;
inline constexpr Rect sizedBy(Point at, Size size)
{
    return {at.x, at.y, size.width, size.height};
}

void drawBody(Painter& painter, const Look& look, Window window);

// Fills the whole painter; lines run beside the caption from one column to another.
struct TitleBar {
    std::string_view caption;
    bool isSelected = false;
    int linesFrom = 0;
    int linesTo = 0;
    Window window = Window::main;
};
void drawTitleBar(Painter painter, const Look& look, const TitleBar& bar);
// A bar with nothing on it, such as a shaded window's.
void drawBareBar(Painter painter, const Look& look, bool isSelected, Window window);
// What of a bar lies behind a button that stands at `at` in it.
void drawBarBehind(Painter painter, const Look& look, const Rect& bar, Point at);

// Each of these fills the whole painter.
void drawTitleButton(Painter painter, const Look& look, Icon icon, bool isPressed);
void drawIconButton(Painter painter, const Look& look, Icon icon, bool isPressed);
void drawTextButton(Painter painter, const Look& look, std::string_view first,
                    std::string_view second, bool isPressed);
void drawToggle(Painter painter, const Look& look, std::string_view caption, ButtonState state);
enum class Grip { vertical, horizontal, small };
void drawThumb(Painter painter, const Look& look, Grip grip, bool isPressed);

// Lettering on the body, with its shadow.
void drawLabel(Painter& painter, Point at, std::string_view text, const Look& look);
void drawIconLabel(Painter& painter, Point at, Icon icon, const Look& look);

// How full a groove is.
void drawLevel(Painter& painter, const Look& look, const Rect& groove, int share);
void drawLevelFromCentre(Painter& painter, const Look& look, const Rect& groove, int share);

// Repeats the window behind a sprite, unless the sprite lets it show.
void drawBehind(Painter& painter, const Look& look, const Image& window, Point at);

// A fresh picture of a size, painted by `paint`.
template <class Paint>
Image paintedImage(Size size, Paint&& paint)
{
    auto pixels = SkinKit::PixelBuffer::transparent(size);
    Painter painter(pixels);
    paint(painter);
    return {std::move(pixels), Image::Alpha::any};
}

}
