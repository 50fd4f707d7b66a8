#pragma once

#include "examples/samples/Painter.h"

#include <span>
#include <string_view>

// Letters, digits and icons.
namespace samples {

using Rows = std::span<const std::string_view>;

// Capitals in cells of five columns; characters that the font lacks stay blank.
int textWidth(std::string_view text);
void drawText(Painter& painter, Point at, std::string_view text, Color color);
void drawCenteredText(Painter& painter, const Rect& rect, std::string_view text, Color color);

// One character as it stands in a cell, from its top left.
void drawCharacter(Painter& painter, Point at, char32_t character, Color color);

enum class Icon {
    previous,
    play,
    pause,
    stop,
    next,
    eject,
    smallPrevious,
    smallPlay,
    smallPause,
    smallStop,
    smallNext,
    smallEject,
    lampPlay,
    lampPause,
    lampStop,
    options,
    minimize,
    shade,
    unshade,
    close,
    up,
    down,
    kbps,
    khz,
    // Emblems.
    wave,
    fish,
    star,
    ghost,
};

Rows rowsOf(Icon icon);
void drawIcon(Painter& painter, Point at, Icon icon, Color color);
void drawCenteredIcon(Painter& painter, const Rect& rect, Icon icon, Color color);

// Clock digits of 9 × 13 pixels, made of seven segments.
enum class SegmentStyle {
    gapped, // separate segments, like a liquid crystal display
    joined, // one stroke with rounded corners
};
void drawSegments(Painter& painter, int digit, SegmentStyle style, Color lit, Color unlit);

// Clock digits of 9 × 13 pixels in coarse blocks, from the small font.
void drawBlockDigit(Painter& painter, int digit, Color color);

}
