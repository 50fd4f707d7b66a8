#include "examples/samples/WindowParts.h"

#include "SkinKit/Sprites/GeneratedBaseSkin.h"

#include <algorithm>

namespace samples {
namespace {

constexpr int lineGap = 3; // between a title bar's lines, from one to the next

void drawTitleLines(Painter& painter, const Look& look, bool isSelected, int from, int to)
{
    const Color line = isSelected ? look.titleLineSelected : look.titleLine;
    const Color shadow = isSelected ? look.titleLineSelectedShadow : look.titleLineShadow;
    constexpr int first = (titleHeight - lineGap - 2) / 2 - 1;
    for (int y = first; y <= first + 2 * lineGap; y += lineGap) {
        painter.fill({from, y, to - from, 1}, line);
        painter.fill({from, y + 1, to - from, 1}, shadow);
    }
}

}

void drawBody(Painter& painter, const Look& look, Window window)
{
    painter.box(painter.bounds(), window == Window::sizable ? look.sizableBody : look.body);
    if (look.decorate)
        look.decorate(painter, window);
}

void drawBareBar(Painter painter, const Look& look, bool isSelected, Window window)
{
    if (window == Window::shaded) // all there is of its window, so nothing may show through
        painter.box(painter.bounds(), look.sizableBody);
    painter.box(painter.bounds(), isSelected ? look.titleBarSelected : look.titleBar);
    if (look.decorateBar)
        look.decorateBar(painter, window);
}

void drawBarBehind(Painter painter, const Look& look, const Rect& bar, Point at)
{
    if (!look.isTranslucent)
        drawBareBar(painter.part({-at.x, -at.y, bar.width, bar.height}), look, true,
                    Window::sizable);
}

void drawTitleBar(Painter painter, const Look& look, const TitleBar& bar)
{
    drawBareBar(painter, look, bar.isSelected, bar.window);
    constexpr int margin = 6;
    const int width = textWidth(bar.caption);
    const int left = (painter.size().width - width) / 2;
    drawTitleLines(painter, look, bar.isSelected, bar.linesFrom, left - margin);
    drawTitleLines(painter, look, bar.isSelected, left + width + margin, bar.linesTo);
    drawText(painter, {left, (titleHeight - SkinKit::GlyphFont::height + 1) / 2}, bar.caption,
             bar.isSelected ? look.titleInkSelected : look.titleInk);
}

void drawTitleButton(Painter painter, const Look& look, Icon icon, bool isPressed)
{
    painter.box(painter.bounds(), isPressed ? look.titleButtonPressed : look.titleButton);
    drawCenteredIcon(painter, painter.bounds(), icon,
                     isPressed ? look.buttonInkPressed : look.titleInkSelected);
}

void drawIconButton(Painter painter, const Look& look, Icon icon, bool isPressed)
{
    painter.box(painter.bounds(), isPressed ? look.buttonPressed : look.button);
    Rect place = painter.bounds();
    if (isPressed)
        place = {place.x + 1, place.y + 1, place.width, place.height};
    drawCenteredIcon(painter, place, icon, isPressed ? look.buttonInkPressed : look.buttonInk);
}

void drawTextButton(Painter painter, const Look& look, std::string_view first,
                    std::string_view second, bool isPressed)
{
    painter.box(painter.bounds(), isPressed ? look.buttonPressed : look.button);
    const Color ink = isPressed ? look.buttonInkPressed : look.buttonInk;
    const int lines = second.empty() ? 1 : 2;
    constexpr int pitch = SkinKit::GlyphFont::height + 1;
    const Size size = painter.size();
    int y = (size.height - lines * pitch + 2) / 2;
    for (const auto line : {first, second}) {
        const int x = (size.width - textWidth(line) + 1) / 2;
        drawText(painter, {x, isPressed ? y + 1 : y}, line, ink); // too wide to move sideways
        y += pitch;
    }
}

void drawToggle(Painter painter, const Look& look, std::string_view caption, ButtonState state)
{
    const Surface& surface = state.pressed ? look.togglePressed
                             : state.lit   ? look.toggleLit
                                           : look.toggle;
    painter.box(painter.bounds(), surface);
    const int height = painter.size().height;
    int left = 0;
    if (look.lampLit.alpha > 0) {
        constexpr Point lamp{3, 3};
        left = lamp.x;
        painter.fill({lamp.x, lamp.y, 2, height - 2 * lamp.y},
                     state.lit ? look.lampLit : look.lampUnlit);
    }
    Rect place{left, 0, painter.size().width - left, height};
    if (state.pressed)
        place.y += 1;
    drawCenteredText(painter, place, caption, state.lit ? look.toggleInkLit : look.toggleInk);
}

void drawThumb(Painter painter, const Look& look, Grip grip, bool isPressed)
{
    Surface surface = isPressed ? look.thumbPressed : look.thumb;
    if (grip == Grip::small) { // no room for a ring, nor for marks
        surface.ringTop = surface.ringBottom = none;
        surface.radius = 0;
    }
    painter.box(painter.bounds(), surface);
    const Color mark = isPressed ? look.gripPressed : look.grip;
    const Size size = painter.size();
    constexpr int margin = 3;
    switch (grip) {
    case Grip::vertical: // marks across the way of a thumb that moves sideways
        for (const int dx : {-2, 0, 2})
            painter.fill({(size.width - 1) / 2 + dx, margin, 1, size.height - 2 * margin}, mark);
        break;
    case Grip::horizontal:
        for (const int dy : {-2, 0, 2})
            painter.fill({margin, (size.height - 1) / 2 + dy, size.width - 2 * margin, 1}, mark);
        break;
    case Grip::small:
        break;
        painter.fill({1, 2, size.width - 2, size.height - 4}, mark);
        break;
    }
}

void drawLabel(Painter& painter, Point at, std::string_view text, const Look& look)
{
    drawText(painter, {at.x, at.y + 1}, text, look.labelShadow);
    drawText(painter, at, text, look.label);
}

void drawIconLabel(Painter& painter, Point at, Icon icon, const Look& look)
{
    drawIcon(painter, {at.x, at.y + 1}, icon, look.labelShadow);
    drawIcon(painter, at, icon, look.label);
}

void drawLevel(Painter& painter, const Look& look, const Rect& groove, int share)
{
    const Rect inner = inset(groove, 1);
    const int filled = inner.width * share / 256;
    for (int x = 0; x < filled; ++x)
        if (look.levelPitch == 0 || x % look.levelPitch != look.levelPitch - 1)
            painter.fill({inner.x + x, inner.y, 1, inner.height}, look.level.at(x, inner.width));
}

void drawLevelFromCentre(Painter& painter, const Look& look, const Rect& groove, int share)
{
    const Rect inner = inset(groove, 1);
    const int half = (inner.width - 1) / 2;
    const int reach = half * share / 256;
    const int pitch = look.levelPitch;
    for (int x = 0; x <= reach; ++x) {
        if (pitch != 0 && (x + pitch / 2) % pitch == pitch - 1)
            continue;
        for (const int column : {half - x, inner.width - 1 - half + x})
            painter.fill({inner.x + column, inner.y, 1, inner.height}, look.level.at(x, half));
    }
}

void drawBehind(Painter& painter, const Look& look, const Image& window, Point at)
{
    if (!look.isTranslucent)
        painter.put(window, {-at.x, -at.y});
}

}
