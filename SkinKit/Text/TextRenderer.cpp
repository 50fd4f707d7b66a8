#include "SkinKit/Text/TextRenderer.h"

#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Text/TextFont.h"

#include <utility>

namespace SkinKit {
namespace {

const Image* textSheet(const Skin& skin)
{
    const auto found = skin.sheets.find(TextFont::sheet);
    return found == skin.sheets.end() ? nullptr : &found->second;
}

// The unit's cell with its top left corner at `at`; a crop cut short by a small sheet is stretched.
void drawCell(Canvas& canvas, const Image& sheet, char16_t unit, Point at)
{
    const auto sprite = TextFont::sprite(unit);
    const auto cell = sprite ? sheet.crop(sprite->rect()) : std::nullopt;
    if (cell)
        canvas.draw(*cell, Rect{at.x, at.y, TextFont::cellWidth, TextFont::cellHeight});
}

void drawCells(Canvas& canvas, const Image& sheet, std::u16string_view units, Point at)
{
    for (const char16_t unit : units) {
        drawCell(canvas, sheet, unit, at);
        at.x += TextFont::cellWidth;
    }
}

}

std::optional<Image> textImage(const Skin& skin, std::string_view text)
{
    const Image* const sheet = textSheet(skin);
    if (!sheet || text.empty())
        return std::nullopt;

    const auto units = Unicode::toUTF16(Unicode::toNFC(text));
    Canvas canvas({TextFont::cellWidth * static_cast<int>(units.size()), TextFont::cellHeight});
    drawCells(canvas, *sheet, units, {0, 0});
    return std::move(canvas).image();
}

void drawText(Canvas& canvas, const Skin& skin, std::string_view text, Point at)
{
    if (const Image* const sheet = textSheet(skin))
        drawCells(canvas, *sheet, Unicode::toUTF16(Unicode::toNFC(text)), at);
}

Rect minusFrame(const Skin& skin)
{
    return skin.usesNumsEx() ? Rect{38, 26, 9, 13} : Rect{38, 32, 5, 1};
}

}
