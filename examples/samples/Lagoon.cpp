#include "SkinKit/Windows/Main/MainWindowLayout.h"
#include "examples/samples/Lettering.h"
#include "examples/samples/SampleSkins.h"
#include "examples/samples/Shape.h"
#include "examples/samples/Sheets.h"
#include "examples/samples/TextFiles.h"
#include "examples/samples/WindowParts.h"
#include "tests/support/BMPWriter.h"

#include <algorithm>
#include <span>

namespace samples {
namespace {

constexpr Color foam = hex(0xF4FBF6);
constexpr Color shallow = hex(0xBFEDE4);
constexpr Color water = hex(0x6FD0D2);
constexpr Color deep = hex(0x2BA3BC);
constexpr Color depth = hex(0x13738F);
constexpr Color navy = hex(0x0E3A56);
constexpr Color coral = hex(0xFF7F66);
constexpr Color coralDeep = hex(0xD9523F);
constexpr Color sand = hex(0xFFF3D6);
constexpr Color sandShade = hex(0xE3CFA0);

// The window is a broad lid on a narrower body that ends in waves.
constexpr int waist = 4;
constexpr int shoulder = 10; // rows that the lid takes to become the waist
constexpr int footRadius = 22;
constexpr int lidRadius = 9;

// The waves at the bottom; the equalizer has letters close above them.
struct Foot {
    int y;
    int height;
};
constexpr Foot mainFoot{111, 4};
constexpr Foot equalizerFoot{113, 2};

bool isInWindow(Point pixel, const Foot& foot)
{
    const auto [width, height] = SkinKit::MainWindowLayout::size;
    if (!holds({0, 0, width, 2 * height}, lidRadius, pixel))
        return false;
    const int below = std::clamp(pixel.y - titleHeight, 0, shoulder);
    const int side = waist * below * (2 * shoulder - below) / (shoulder * shoulder);
    const int bottom = foot.y + wave(pixel.x + 6, 44, foot.height);
    return holds({side, -height, width - 2 * side, height + bottom}, footRadius, pixel);
}

const Shape& windowShape(Window window)
{
    const auto shape = [](const Foot& foot) {
        return Shape(SkinKit::MainWindowLayout::size,
                     [&foot](Point pixel) { return isInWindow(pixel, foot); });
    };
    static const Shape mainShape = shape(mainFoot);
    static const Shape equalizerShape = shape(equalizerFoot);
    return window == Window::main ? mainShape : equalizerShape;
}

const Shape& shadeShape()
{
    static constexpr Size size = SkinKit::MainWindowLayout::shadeSize;
    static const Shape shape(size, [](Point pixel) {
        return holds({0, 0, size.width, size.height}, titleHeight / 2, pixel);
    });
    return shape;
}

void outline(Painter& painter, const Shape& shape)
{
    const auto [width, height] = painter.size();
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (!shape.holdsAround({x, y}))
                painter.dot({x, y}, depth);
}

// Water below a line of waves with a crest of foam.
struct Water {
    int y, length, height, shift;
    Color crest, body;
};

void drawWater(Painter& painter, const Water& line)
{
    const auto [width, height] = painter.size();
    for (int x = 0; x < width; ++x) {
        const int top = line.y + wave(x + line.shift, line.length, line.height);
        painter.fill({x, top, 1, height - top}, line.body);
        painter.fill({x, top, 1, 1}, line.crest);
    }
}

// Each line of waves in deeper water than the one behind it. The equalizer's sliders need the same
// water at every column, so its waves keep to the foot.
// clang-format off
constexpr Water mainSea[] = {
    {  72, 74, 3, 10, hex(0xE9FBF5, 150), hex(0x8FDFDB)},
    {  86, 60, 3, 34, hex(0xE9FBF5, 150), hex(0x5CC4CB)},
    { 106, 44, 2, 14, hex(0xE9FBF5, 190), deep},
};
constexpr Water calmSea[] = {
    { 111, 44, 2, 14, hex(0xE9FBF5, 190), deep},
};
// clang-format on

void decorate(Painter& painter, Window window)
{
    if (window == Window::sizable)
        return;
    const auto [width, height] = painter.size();
    if (window == Window::equalizer)
        painter.shade(
            {
                0, titleHeight, width, height - titleHeight
        },
            {{foam, shallow, water}});
    for (const Water& line :
         window == Window::main ? std::span<const Water>(mainSea) : std::span<const Water>(calmSea))
        drawWater(painter, line);
    outline(painter, windowShape(window));
}

void outlineBar(Painter& painter, Window window)
{
    if (window != Window::sizable)
        outline(painter, window == Window::shaded ? shadeShape() : windowShape(window));
}

Look look()
{
    const Surface button{.fill = {{hex(0xFFB29C), coral, hex(0xF06A53)}},
                         .ringTop = coralDeep,
                         .ringBottom = hex(0xA83A30),
                         .light = hex(0xFFE0D4),
                         .dark = hex(0xD9523F),
                         .radius = 5};
    const Surface pressed{.fill = {{hex(0xC4432F), hex(0xDB5A47)}},
                          .ringTop = hex(0x8F2C22),
                          .ringBottom = hex(0xA83A30),
                          .light = hex(0xA93826),
                          .dark = hex(0xEB7B66),
                          .radius = 5};
    const Surface toggle{.fill = {{foam, hex(0xCFEFE8)}},
                         .ringTop = depth,
                         .ringBottom = depth,
                         .light = hex(0xFFFFFF),
                         .dark = hex(0x9FDAD6),
                         .radius = 5};
    Surface toggleLit = toggle;
    toggleLit.fill = {
        {hex(0xFFD27A), hex(0xFFB93F)}
    };
    toggleLit.light = hex(0xFFF0C8);
    toggleLit.dark = hex(0xE0922A);
    Surface togglePressed = toggle;
    togglePressed.fill = {
        {hex(0x8CCFD0), hex(0xAFE3DE)}
    };
    togglePressed.light = hex(0x6FB9BE);
    togglePressed.dark = foam;
    const Surface display{.fill = {{hex(0xFFFAEA), sand}},
                          .ringTop = depth,
                          .ringBottom = depth,
                          .light = sandShade,
                          .dark = hex(0xFFFFFF),
                          .radius = 5};
    Surface textDisplay = display;
    textDisplay.fill = {{sand}};
    const Surface groove{.fill = {{hex(0x1C86A0), hex(0x3AA9BE)}},
                         .ringTop = hex(0x0F5F78),
                         .ringBottom = hex(0x0F5F78),
                         .radius = 3};
    const Surface thumb{.fill = {{hex(0xFFFFFF), hex(0xFFEFD0), hex(0xF3D49A)}},
                        .ringTop = hex(0x9C6A2E),
                        .ringBottom = hex(0x7A4E1C),
                        .light = hex(0xFFFFFF),
                        .dark = hex(0xD9AE66),
                        .radius = 4};
    Surface thumbPressed = thumb;
    thumbPressed.fill = {
        {hex(0xFFC85A), hex(0xFFDC95)}
    };
    thumbPressed.light = hex(0xE0A23A);
    const Surface lid{.fill = {{hex(0x9BD9DA), hex(0x6DBFC6)}},
                      .ringTop = depth,
                      .ringBottom = depth,
                      .light = hex(0xCDEFEB),
                      .dark = hex(0x4C9FAA),
                      .radius = 0};
    Surface lidSelected = lid;
    lidSelected.fill = {
        {hex(0x39B3C6), hex(0x1D86A6)}
    };
    lidSelected.light = hex(0x8FE3E6);
    lidSelected.dark = hex(0x125F7C);
    Surface titleButton = button;
    titleButton.radius = 4;
    Surface titleButtonPressed = pressed;
    titleButtonPressed.radius = 4;

    return {
        .title = "LAGOON",
        .body = {.fill = {{foam, shallow, water}}, .ringTop = depth, .ringBottom = depth},
        .sizableBody = {.fill = {{shallow}},
                 .ringTop = depth,
                 .ringBottom = depth,
                 .light = foam,
                 .dark = water},
        .titleBar = lid,
        .titleBarSelected = lidSelected,
        .titleButton = titleButton,
        .titleButtonPressed = titleButtonPressed,
        .titleInk = hex(0x2A7688),
        .titleInkSelected = hex(0xFFFFFF),
        .titleLine = hex(0xBDE7E4),
        .titleLineShadow = hex(0x5BAEB8),
        .titleLineSelected = hex(0x8FE3E6),
        .titleLineSelectedShadow = hex(0x16718F),
        .display = display,
        .textDisplay = textDisplay,
        .groove = groove,
        .list = {.fill = {{hex(0xFFFAEA)}}, .ringTop = depth, .ringBottom = depth},
        .button = button,
        .buttonPressed = pressed,
        .toggle = toggle,
        .toggleLit = toggleLit,
        .togglePressed = togglePressed,
        .thumb = thumb,
        .thumbPressed = thumbPressed,
        .buttonInk = hex(0xFFFFFF),
        .buttonInkPressed = hex(0xFFE9C8),
        .toggleInk = hex(0x3C7F93),
        .toggleInkLit = hex(0x6B3A08),
        .lampLit = none,
        .lampUnlit = none,
        .grip = hex(0xC08A45),
        .gripPressed = hex(0x8A5514),
        .emblem = Icon::fish,
        .label = navy,
        .stateLit = hex(0xD2412C),
        .stateUnlit = hex(0x7DB7BF),
        .displayInk = navy,
        .displayDim = hex(0x9FB9B4),
        .play = hex(0x2D9A5A),
        .pause = hex(0xE08A1E),
        .work = hex(0x2D9A5A),
        .level = {{hex(0x8FF0DE), hex(0xFFE28A), coral}},
        .graph = {{coralDeep, hex(0xE08A1E), hex(0x2D9A5A), deep, depth}},
        .graphGrid = sandShade,
        .visBackground = hex(0xFFF6DF),
        .visDots = hex(0xEBDDB6),
        .visBars = {{coralDeep, coral, hex(0xFFB93F), hex(0x5CC4CB), deep, depth}},
        .visTrace = {{navy, deep, water}},
        .visPeak = navy,
        .listInk = hex(0x1D5A70),
        .listInkCurrent = coralDeep,
        .listSelection = hex(0xBFEDE4),
        .listFont = "Verdana",
        .gutter = hex(0x6FD0D2),
        .digit = [](Painter& cell,
                    int digit) { drawSegments(cell, digit, SegmentStyle::joined, navy, none); },
        .decorate = decorate,
        .decorateBar = outlineBar,
    };
}

std::string mixedCase(std::string name)
{
    std::ranges::transform(name.begin() + 1, name.end(), name.begin() + 1, [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return name;
}

}

SampleSkin lagoon()
{
    const Look lagoonLook = look();
    const std::string folder = "Lagoon Skin/";
    const auto text = [&](const std::string& name, std::string_view content) {
        return SkinFile{folder + name, support::bytes(content)};
    };
    SampleSkin skin{.name = "lagoon", .files = {}};
    for (const auto& [sheet, image] : drawSheets(lagoonLook))
        if (sheet != "NUMS_EX")
            skin.files.push_back(
                {folder + mixedCase(sheet) + ".BMP", support::encodeBMP(image, 24)});
    skin.files.push_back(text("VisColor.txt", visColorText(lagoonLook)));
    skin.files.push_back(text("PlEdit.TXT", playlistText(lagoonLook)));
    skin.files.push_back(
        text("Region.txt", regionSection("Normal", windowShape(Window::main)) +
                               regionSection("WindowShade", shadeShape()) +
                               regionSection("Equalizer", windowShape(Window::equalizer)) +
                               regionSection("EqualizerWS", shadeShape())));
    return skin;
}

}
