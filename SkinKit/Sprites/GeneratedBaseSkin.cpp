#include "SkinKit/Sprites/GeneratedBaseSkin.h"

#include "SkinKit/Base/Numbers.h"
#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Sprites/SkinSprites.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <string_view>
#include <vector>

namespace SkinKit::GlyphFont {
namespace {

// clang-format off
constexpr GlyphArt::Block<height> blocks[] = {
    {U"ABCDEFGH",
     {".##. ###. .### ###. #### #### .### #..#",
      "#..# #..# #... #..# #... #... #... #..#",
      "#### ###. #... #..# ###. ###. #.## ####",
      "#..# #..# #... #..# #... #... #..# #..#",
      "#..# ###. .### ###. #### #... .### #..#"}},
    {U"IJKLMNOP",
     {".### ..## #..# #... #..# #..# .##. ###.",
      "..#. ...# #.#. #... #### ##.# #..# #..#",
      "..#. ...# ##.. #... #### #.## #..# ###.",
      "..#. #..# #.#. #... #..# #..# #..# #...",
      ".### .##. #..# #### #..# #..# .##. #..."}},
    {U"QRSTUVWX",
     {".##. ###. .### .### #..# #..# #..# #..#",
      "#..# #..# #... ..#. #..# #..# #..# #..#",
      "#..# ###. .##. ..#. #..# #..# #### .##.",
      "#.#. #.#. ...# ..#. #..# .##. #### #..#",
      ".#.# #..# ###. ..#. .##. .##. #..# #..#"}},
    {U"YZ012345",
     {"#..# #### .##. ..#. ###. ###. #..# ####",
      "#..# ...# #..# .##. ...# ...# #..# #...",
      ".### .##. #..# ..#. .##. .##. #### ###.",
      "...# #... #..# ..#. #... ...# ...# ...#",
      ".##. #### .##. .### #### ###. ...# ###."}},
    {U"6789\"@….",
     {".### #### .##. .##. #.#. .##. .... ....",
      "#... ...# #..# #..# #.#. #.## .... ....",
      "###. ..#. .##. .### .... #.## .... ....",
      "#..# .#.. #..# ...# .... #... .... ....",
      ".##. .#.. .##. ###. .... .##. #.#. .#.."}},
    {U":()-'!_+",
     {".... ..#. .#.. .... .#.. .#.. .... ....",
      ".#.. .#.. ..#. .... .#.. .#.. .... .#..",
      ".... .#.. ..#. .##. .... .#.. .... ###.",
      ".#.. .#.. ..#. .... .... .... .... .#..",
      ".... ..#. .#.. .... .... .#.. #### ...."}},
    {U"\\/[]^&%,",
     {"#... ..#. .##. .##. .#.. .#.. #..# ....",
      "#... ..#. .#.. ..#. #.#. #.#. ...# ....",
      ".#.. .#.. .#.. ..#. .... .#.. .##. ....",
      "..#. #... .#.. ..#. .... #.#. #... .#..",
      "..#. #... .##. .##. .... .#.# #..# #..."}},
    {U"=$#ÅÖÄ?*",
     {".... .### #.#. .#.. #..# #..# .##. ....",
      "###. ##.. ###. .##. .##. .##. #..# #.#.",
      ".... .##. #.#. #..# #..# #..# ..#. .#..",
      "###. ..## ###. #### #..# #### .... #.#.",
      ".... ###. #.#. #..# .##. #..# ..#. ...."}},
};
// clang-format on

constexpr std::size_t pitch = width + 1;

static_assert(std::ranges::all_of(blocks, [](const auto& block) {
    return GlyphArt::isWellDrawn(block) &&
           block.rows[0].size() + 1 == block.characters.size() * pitch;
}));

// Characters that share a cell of the text sheet share a glyph.
char32_t withSameGlyph(char32_t character)
{
    switch (character) {
    case U'<':
    case U'{': return U'[';
    case U'>':
    case U'}': return U']';
    default: return character;
    }
}

}

std::optional<Glyph> glyph(char32_t character)
{
    for (const auto& block : blocks) {
        const auto place = block.characters.find(withSameGlyph(character));
        if (place != block.characters.npos)
            return GlyphArt::read(block, place * pitch);
    }
    return std::nullopt;
}

}

namespace SkinKit::GeneratedBaseSkin {
namespace {

constexpr std::string_view notGenerated[] = {"BALANCE", "NUMS_EX", "EQ_EX", "GEN"};

// clang-format off
constexpr RGBColor screen         {  0,   0,   0};
constexpr RGBColor litSegment     {  0, 230,   0};
constexpr RGBColor sheetBackground{ 40,  40,  48};
constexpr RGBColor panelFace      { 60,  60,  70};
constexpr RGBColor buttonFace     {150, 150, 160};
constexpr RGBColor pressedFace    {120, 120, 130};
constexpr RGBColor lightEdge      {220, 220, 230};
constexpr RGBColor darkEdge       { 70,  70,  80};

// The segments of a digit, in pixels of its cell:
//
//      aaa
//     f   b
//      ggg
//     e   c
//      ddd
constexpr struct { char letter; Rect rect; } segments[] = {
    //     x   y  w  h
    {'a', {1,  0, 7, 1}},
    {'b', {7,  1, 1, 5}},
    {'c', {7,  7, 1, 5}},
    {'d', {1, 12, 7, 1}},
    {'e', {1,  7, 1, 5}},
    {'f', {1,  1, 1, 5}},
    {'g', {1,  6, 7, 1}},
};

constexpr std::string_view litSegments[] = {
    "abcdef",  // 0
    "bc",
    "abged",
    "abgcd",
    "fgbc",
    "afgcd",
    "afgedc",
    "abc",
    "abcdefg",
    "abcdfg",  // 9
};
// clang-format on

void drawDigits(Canvas& canvas)
{
    for (std::size_t digit = 0; digit < std::size(litSegments); ++digit) {
        const auto placed = SkinSprites::byName("DIGIT_" + std::to_string(digit));
        if (!placed)
            continue;
        for (const auto& segment : segments) {
            if (!litSegments[digit].contains(segment.letter))
                continue;
            Rect rect = segment.rect;
            rect.x += placed->sprite.x;
            rect.y += placed->sprite.y;
            canvas.fill(rect, litSegment);
        }
    }
}

constexpr char32_t upperCase(char32_t character)
{
    return character >= U'a' && character <= U'z' ? character - U'a' + U'A' : character;
}

void drawCharacter(Canvas& canvas, const Sprite& sprite)
{
    constexpr std::string_view prefix = "CHARACTER_";
    if (!sprite.name.starts_with(prefix))
        return;
    const auto code = Numbers::parseInteger<std::uint32_t>(sprite.name.substr(prefix.size()));
    const auto glyph = code ? GlyphFont::glyph(upperCase(*code)) : std::nullopt;
    if (!glyph)
        return;

    // The baseline is one pixel above the cell's bottom, which is where the glyph's height ends.
    for (int y = 0; y < GlyphFont::height; ++y)
        for (int x = 0; x < GlyphFont::width; ++x)
            if (glyph->isSet(x, y))
                canvas.fill({sprite.x + x, sprite.y + y, 1, 1}, litSegment);
}

bool isPressed(const Sprite& sprite)
{
    constexpr std::string_view words[] = {"ACTIVE", "SELECTED", "DEPRESSED", "PRESSED"};
    return std::ranges::any_of(words,
                               [&](std::string_view word) { return sprite.name.contains(word); });
}

// A one-pixel frame. Top and left come first, so the two corners between take the other colour.
void drawFrame(Canvas& canvas, const Rect& rect, const RGBColor& topLeft,
               const RGBColor& bottomRight)
{
    canvas.fill({rect.x, rect.y, rect.width, 1}, topLeft);
    canvas.fill({rect.x, rect.y, 1, rect.height}, topLeft);
    canvas.fill({rect.x, rect.bottom() - 1, rect.width, 1}, bottomRight);
    canvas.fill({rect.right() - 1, rect.y, 1, rect.height}, bottomRight);
}

void drawBevel(Canvas& canvas, const Sprite& sprite)
{
    const bool pressed = isPressed(sprite);
    const bool isBackground = sprite.name.contains("BACKGROUND");
    canvas.fill(sprite.rect(), isBackground ? panelFace : pressed ? pressedFace : buttonFace);

    constexpr int smallestFramed = 3;
    if (sprite.width < smallestFramed || sprite.height < smallestFramed)
        return;
    const bool isRaised = isBackground || !pressed;
    drawFrame(canvas, sprite.rect(), isRaised ? lightEdge : darkEdge,
              isRaised ? darkEdge : lightEdge);
}

// Largest first, so that smaller sprites are on top of those that contain them.
void drawBevels(Canvas& canvas, std::span<const Sprite> sprites)
{
    std::vector<Sprite> ordered(sprites.begin(), sprites.end());
    std::ranges::sort(ordered, [](const Sprite& a, const Sprite& b) {
        const int areaA = a.width * a.height;
        const int areaB = b.width * b.height;
        return areaA != areaB ? areaA > areaB : a.name < b.name;
    });
    for (const Sprite& sprite : ordered)
        drawBevel(canvas, sprite);
}

Image draw(const SkinSprites::Sheet& sheet)
{
    Canvas canvas(size(sheet.name));
    const Rect whole{0, 0, canvas.size().width, canvas.size().height};
    if (sheet.name == "NUMBERS") {
        canvas.fill(whole, screen);
        drawDigits(canvas);
    } else if (sheet.name == "TEXT") {
        canvas.fill(whole, screen);
        for (const Sprite& sprite : sheet.sprites)
            drawCharacter(canvas, sprite);
    } else {
        canvas.fill(whole, sheetBackground);
        drawBevels(canvas, sheet.sprites);
    }
    return std::move(canvas).image(Image::Alpha::opaque);
}

}

bool isGenerated(std::string_view sheet)
{
    return !SkinSprites::spritesOf(sheet).empty() &&
           std::ranges::find(notGenerated, sheet) == std::end(notGenerated);
}

Size size(std::string_view sheet)
{
    Size size{1, 1};
    for (const Sprite& sprite : SkinSprites::spritesOf(sheet)) {
        size.width = std::max(size.width, sprite.x + sprite.width);
        size.height = std::max(size.height, sprite.y + sprite.height);
    }
    return size;
}

std::optional<Image> sheet(std::string_view name)
{
    if (!isGenerated(name))
        return std::nullopt;

    // A sheet is drawn when it is first asked for: most skins lack one or two at most.
    static std::array<std::once_flag, SkinSprites::sheetCount> drawn;
    static std::array<std::optional<Image>, SkinSprites::sheetCount> images;
    const auto sheets = SkinSprites::sheets();
    const auto found = std::ranges::find(sheets, name, &SkinSprites::Sheet::name);
    const auto place = static_cast<std::size_t>(found - sheets.begin());
    std::call_once(drawn[place], [&] { images[place] = draw(*found); });
    return images[place];
}

}
