#include "SkinKit/Text/TextFont.h"

#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Sprites/SkinSprites.h"

#include <array>
#include <cstdint>
#include <string>
#include <utility>

namespace SkinKit::TextFont {
namespace {

struct Fold {
    std::string_view letters;
    std::u16string_view units; // folded to them
};
// clang-format off
constexpr Fold folds[] = {
    {"A",  u"ÀÁÂÃÄÅĀĂĄ"},    {"a",  u"àáâãäåāăą"},
    {"C",  u"ÇĆĈĊČ"},        {"c",  u"çćĉċč"},
    {"D",  u"ÐĎĐ"},          {"d",  u"ðďđ"},
    {"E",  u"ÈÉÊËĒĔĖĘĚ"},    {"e",  u"èéêëēĕėęě"},
    {"G",  u"ĜĞĠĢ"},         {"g",  u"ĝğġģ"},
    {"H",  u"ĤĦ"},           {"h",  u"ĥħ"},
    {"I",  u"ÌÍÎÏĨĪĬĮİ"},    {"i",  u"ìíîïĩīĭįı"},
    {"J",  u"Ĵ"},            {"j",  u"ĵ"},
    {"K",  u"Ķ"},            {"k",  u"ķĸ"},
    {"L",  u"ĹĻĽĿŁ"},        {"l",  u"ĺļľŀł"},
    {"N",  u"ÑŃŅŇŊ"},        {"n",  u"ñńņňŋ"},
    {"O",  u"ÒÓÔÕÖØŌŎŐ"},    {"o",  u"òóôõöøōŏő"},
    {"R",  u"ŔŖŘ"},          {"r",  u"ŕŗř"},
    {"S",  u"ŚŜŞŠ"},         {"s",  u"śŝşšſ"},
    {"T",  u"ŢŤŦ"},          {"t",  u"ţťŧ"},
    {"U",  u"ÙÚÛÜŨŪŬŮŰŲ"},   {"u",  u"ùúûüũūŭůűų"},
    {"W",  u"Ŵ"},            {"w",  u"ŵ"},
    {"Y",  u"ÝŶŸ"},          {"y",  u"ýÿŷ"},
    {"Z",  u"ŹŻŽ"},          {"z",  u"źżž"},
    {"Ae", u"Æ"},            {"ae", u"æ"},
    {"Oe", u"Œ"},            {"oe", u"œ"},
    {"IJ", u"Ĳ"},            {"ij", u"ĳ"},
    {"Th", u"Þ"},            {"th", u"þ"},
    {"ss", u"ß"},
    {"'n", u"ŉ"},
};
// clang-format on

static_assert([] {
    std::size_t count = 0;
    for (const Fold& fold : folds)
        count += fold.units.size();
    return count;
}() == 190);

bool isCombiningMark(char16_t unit)
{
    return (unit >= 0x0300 && unit <= 0x036F) || (unit >= 0xFE20 && unit <= 0xFE2F) ||
           (unit >= 0x20D0 && unit <= 0x20FF);
}

bool isSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit <= 0xDFFF;
}

std::optional<Sprite> find(char16_t unit)
{
    const auto letters = deburr(unit);
    if (!letters)
        return std::nullopt;
    const auto first = Unicode::toUTF16(Unicode::lowercased(*letters)).front();
    const auto placed =
        SkinSprites::byName("CHARACTER_" + std::to_string(static_cast<unsigned>(first)));
    return placed ? std::optional(placed->sprite) : std::nullopt;
}

constexpr std::size_t asciiCount = 128;

// Nearly all text is ASCII; looking each character up once makes a title cost next to nothing.
std::array<std::optional<Sprite>, asciiCount> findASCII()
{
    std::array<std::optional<Sprite>, asciiCount> found;
    for (std::size_t unit = 0; unit < asciiCount; ++unit)
        found[unit] = find(static_cast<char16_t>(unit));
    return found;
}

}

std::optional<std::string> deburr(char16_t unit)
{
    if (isCombiningMark(unit) || isSurrogate(unit))
        return std::nullopt;
    constexpr char16_t firstFolded = u'À';
    if (unit >= firstFolded)
        for (const Fold& fold : folds)
            if (fold.units.contains(unit))
                return std::string(fold.letters);
    std::string itself;
    Unicode::append(itself, unit);
    return itself;
}

std::optional<Sprite> sprite(char16_t unit)
{
    static const auto ascii = findASCII();
    return unit < asciiCount ? ascii[unit] : find(unit);
}

std::optional<std::string_view> spriteName(char16_t unit)
{
    const auto found = sprite(unit);
    return found ? std::optional(found->name) : std::nullopt;
}

std::vector<std::optional<std::string_view>> cells(std::string_view text)
{
    std::vector<std::optional<std::string_view>> names;
    for (const char16_t unit : Unicode::toUTF16(text))
        names.push_back(spriteName(unit));
    return names;
}

}

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

namespace SkinKit::MarqueeLayout {
namespace {

std::size_t length(std::string_view composed)
{
    return Unicode::toUTF16(composed).size();
}

}

bool isLong(std::string_view text)
{
    return length(Unicode::toNFC(text)) >= maxLength;
}

std::string loopText(std::string_view text)
{
    const std::string composed = Unicode::toNFC(text);
    const std::size_t units = length(composed);
    if (units < maxLength)
        return composed + std::string(maxLength - units, ' ');
    return composed + std::string(separator) + composed;
}

int stepOffset(std::string_view text, int step, int pixels)
{
    const std::size_t units = length(Unicode::toNFC(text));
    if (units < maxLength)
        return 0;
    const auto period = static_cast<std::int64_t>(units + separator.size()) * charWidth;
    const std::int64_t offset = (std::int64_t{step} * charWidth + pixels) % period;
    return static_cast<int>(offset < 0 ? offset + period : offset);
}

}
