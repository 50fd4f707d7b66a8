#include "examples/samples/Lettering.h"

#include "SkinKit/Sprites/GeneratedBaseSkin.h"

#include <algorithm>
#include <array>
#include <string>

namespace samples {
namespace {

constexpr int cellWidth = SkinKit::GlyphFont::width + 1;

constexpr char32_t upperCase(char32_t character)
{
    return character >= U'a' && character <= U'z' ? character - U'a' + U'A' : character;
}

// clang-format off
constexpr std::string_view previousRows[] = {
    "##.......##",
    "##.....####",
    "##...######",
    "##..#######",
    "##.########",
    "##..#######",
    "##...######",
    "##.....####",
    "##.......##",
};
constexpr std::string_view playRows[] = {
    "##.......",
    "####.....",
    "######...",
    "########.",
    "#########",
    "########.",
    "######...",
    "####.....",
    "##.......",
};
constexpr std::string_view pauseRows[] = {
    "###..###", "###..###", "###..###", "###..###", "###..###",
    "###..###", "###..###", "###..###", "###..###",
};
constexpr std::string_view stopRows[] = {
    "########", "########", "########", "########",
    "########", "########", "########", "########",
};
constexpr std::string_view nextRows[] = {
    "##.......##",
    "####.....##",
    "######...##",
    "#######..##",
    "########.##",
    "#######..##",
    "######...##",
    "####.....##",
    "##.......##",
};
constexpr std::string_view ejectRows[] = {
    ".....#.....",
    "....###....",
    "...#####...",
    "..#######..",
    ".#########.",
    "...........",
    ".#########.",
    ".#########.",
};
constexpr std::string_view smallPreviousRows[] = {"#...#", "#.###", "#####", "#.###", "#...#"};
constexpr std::string_view smallPlayRows[]     = {"#....", "###..", "#####", "###..", "#...."};
constexpr std::string_view smallPauseRows[]    = {"##.##", "##.##", "##.##", "##.##", "##.##"};
constexpr std::string_view smallStopRows[]     = {"#####", "#####", "#####", "#####", "#####"};
constexpr std::string_view smallNextRows[]     = {"#...#", "###.#", "#####", "###.#", "#...#"};
constexpr std::string_view smallEjectRows[]    = {"..#..", ".###.", "#####", ".....", "#####"};
constexpr std::string_view lampPlayRows[] = {
    "#.....", "###...", "#####.", "######", "#####.", "###...", "#.....",
};
constexpr std::string_view lampPauseRows[] = {
    "##..##", "##..##", "##..##", "##..##", "##..##", "##..##", "##..##",
};
constexpr std::string_view lampStopRows[] = {
    "######", "######", "######", "######", "######", "######",
};
constexpr std::string_view optionsRows[]       = {".....", "#####", ".###.", "..#..", "....."};
constexpr std::string_view minimizeRows[]      = {".....", ".....", ".....", "#####", "#####"};
constexpr std::string_view shadeRows[]         = {"#####", "#####", ".....", ".....", "....."};
constexpr std::string_view unshadeRows[]       = {"#####", "#####", "#...#", "#...#", "#####"};
constexpr std::string_view closeRows[]         = {"#...#", ".#.#.", "..#..", ".#.#.", "#...#"};
constexpr std::string_view upRows[]            = {"..#..", ".###.", "#####"};
constexpr std::string_view downRows[]          = {"#####", ".###.", "..#.."};
constexpr std::string_view kbpsRows[] = {
    "#... #... .... ....",
    "#... #... .... ....",
    "#..# ###. ###. .###",
    "#.#. #..# #..# #...",
    "##.. #..# #..# .##.",
    "#.#. #..# #..# ...#",
    "#..# ###. ###. ###.",
    ".... .... #... ....",
    ".... .... #... ....",
};
constexpr std::string_view khzRows[] = {
    "#... #..# ....",
    "#... #..# ....",
    "#..# #..# ####",
    "#.#. #### ..#.",
    "##.. #..# .#..",
    "#.#. #..# #...",
    "#..# #..# ####",
};
constexpr std::string_view waveRows[] = {
    "...........#...........",
    "...........#...........",
    ".......#...##..........",
    ".......#..###...#......",
    "...#..###.#.#...#......",
    "...#..#.#.#.#..###..#..",
    "####..#.#.#.#..#.#.####",
    "...#.##.###.#.##.#.#...",
    "...###...##.###..###...",
    "....#....#...#....#....",
    ".........#...#.........",
    ".............#.........",
};

constexpr std::string_view fishRows[] = {
    ".......###.........",
    "...########....##..",
    "..###########.###..",
    ".##.##########.##..",
    "###.###########....",
    ".#############.##..",
    "..###########.###..",
    "...########....##..",
    "......###..........",
};
constexpr std::string_view starRows[] = {
    ".....#.....",
    ".....#.....",
    "....###....",
    "....###....",
    "..#######..",
    "###########",
    "..#######..",
    "....###....",
    "....###....",
    ".....#.....",
    ".....#.....",
};
constexpr std::string_view ghostRows[] = {
    "...#####...",
    "..#######..",
    ".#########.",
    ".##..##..#.",
    ".##..##..#.",
    ".#########.",
    ".#########.",
    ".#########.",
    ".#########.",
    ".##.###.##.",
    ".#...#...#.",
};

// Which segments of a digit light a pixel: a letter is its own segment, a figure stands for a
// pixel that several share.
//
//      aaa
//     f   b
//      ggg
//     e   c
//      ddd
using Segments = std::array<std::string_view, 13>;
constexpr Segments gappedSegments{
    ".aaaaaa..",
    "f.aaaa.b.",
    "ff....bb.",
    "ff....bb.",
    "ff....bb.",
    "f......b.",
    ".gggggg..",
    "e......c.",
    "ee....cc.",
    "ee....cc.",
    "ee....cc.",
    "e.dddd.c.",
    ".dddddd..",
};
constexpr Segments joinedSegments{
    ".1aaaa2..",
    "11aaaa22.",
    "ff....bb.",
    "ff....bb.",
    "ff....bb.",
    "3fggggb4.",
    "33gggg44.",
    "ee....cc.",
    "ee....cc.",
    "ee....cc.",
    "ee....cc.",
    "55dddd66.",
    ".5dddd6..",
};
constexpr struct { char figure; std::string_view segments; } shared[] = {
    {'1', "af"}, {'2', "ab"}, {'3', "ef"}, {'4', "bc"}, {'5', "de"}, {'6', "cd"},
};
constexpr std::string_view litSegments[] = {
    "abcdef", "bc", "abged", "abgcd", "fgbc", "afgcd", "afgedc", "abc", "abcdefg", "abcdfg",
};
// clang-format on

bool isLit(char pixel, std::string_view lit)
{
    for (const auto& [figure, segments] : shared)
        if (figure == pixel)
            return lit.find_first_of(segments) != lit.npos;
    return lit.contains(pixel);
}

}

int textWidth(std::string_view text)
{
    return static_cast<int>(text.size()) * cellWidth - 1;
}

void drawCharacter(Painter& painter, Point at, char32_t character, Color color)
{
    const auto glyph = SkinKit::GlyphFont::glyph(upperCase(character));
    if (!glyph)
        return;
    for (int y = 0; y < SkinKit::GlyphFont::height; ++y)
        for (int x = 0; x < SkinKit::GlyphFont::width; ++x)
            if (glyph->isSet(x, y))
                painter.dot({at.x + x, at.y + y}, color);
}

void drawText(Painter& painter, Point at, std::string_view text, Color color)
{
    for (const char character : text) {
        drawCharacter(painter, at, static_cast<unsigned char>(character), color);
        at.x += cellWidth;
    }
}

void drawCenteredText(Painter& painter, const Rect& rect, std::string_view text, Color color)
{
    drawText(painter,
             {rect.x + (rect.width - textWidth(text)) / 2,
              rect.y + (rect.height - SkinKit::GlyphFont::height) / 2},
             text, color);
}

Rows rowsOf(Icon icon)
{
    switch (icon) {
    case Icon::previous: return previousRows;
    case Icon::play: return playRows;
    case Icon::pause: return pauseRows;
    case Icon::stop: return stopRows;
    case Icon::next: return nextRows;
    case Icon::eject: return ejectRows;
    case Icon::smallPrevious: return smallPreviousRows;
    case Icon::smallPlay: return smallPlayRows;
    case Icon::smallPause: return smallPauseRows;
    case Icon::smallStop: return smallStopRows;
    case Icon::smallNext: return smallNextRows;
    case Icon::smallEject: return smallEjectRows;
    case Icon::lampPlay: return lampPlayRows;
    case Icon::lampPause: return lampPauseRows;
    case Icon::lampStop: return lampStopRows;
    case Icon::options: return optionsRows;
    case Icon::minimize: return minimizeRows;
    case Icon::shade: return shadeRows;
    case Icon::unshade: return unshadeRows;
    case Icon::close: return closeRows;
    case Icon::up: return upRows;
    case Icon::down: return downRows;
    case Icon::kbps: return kbpsRows;
    case Icon::khz: return khzRows;
    case Icon::wave: return waveRows;
    case Icon::fish: return fishRows;
    case Icon::star: return starRows;
    case Icon::ghost: return ghostRows;
    }
    return {};
}

void drawIcon(Painter& painter, Point at, Icon icon, Color color)
{
    painter.stamp(rowsOf(icon), at, color);
}

void drawCenteredIcon(Painter& painter, const Rect& rect, Icon icon, Color color)
{
    const auto rows = rowsOf(icon);
    painter.stamp(rows,
                  {rect.x + (rect.width - static_cast<int>(rows[0].size())) / 2,
                   rect.y + (rect.height - static_cast<int>(rows.size())) / 2},
                  color);
}

void drawSegments(Painter& painter, int digit, SegmentStyle style, Color lit, Color unlit)
{
    const auto& rows = style == SegmentStyle::gapped ? gappedSegments : joinedSegments;
    const auto on = litSegments[digit];
    for (std::size_t y = 0; y < rows.size(); ++y)
        for (std::size_t x = 0; x < rows[y].size(); ++x)
            if (rows[y][x] != '.')
                painter.dot({static_cast<int>(x), static_cast<int>(y)},
                            isLit(rows[y][x], on) ? lit : unlit);
}

void drawBlockDigit(Painter& painter, int digit, Color color)
{
    constexpr int columnWidth = 2;
    constexpr int rowHeights[] = {3, 2, 3, 2, 3};
    const auto glyph = SkinKit::GlyphFont::glyph(U'0' + static_cast<char32_t>(digit));
    int top = 0;
    for (int y = 0; glyph && y < SkinKit::GlyphFont::height; top += rowHeights[y++])
        for (int x = 0; x < SkinKit::GlyphFont::width; ++x)
            if (glyph->isSet(x, y))
                painter.fill({columnWidth * x, top, columnWidth, rowHeights[y]}, color);
}

}
