#include "SkinKit/Base/Check.h"
#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Graphics/PNGCodec.h"
#include "examples/samples/SampleSkins.h"
#include "examples/samples/Sheets.h"
#include "examples/samples/TextFiles.h"
#include "examples/samples/WindowParts.h"
#include "tests/support/Bytes.h"

#include <algorithm>

namespace samples {
namespace {

constexpr Color white(std::uint8_t alpha)
{
    return hex(0xFFFFFF, alpha);
}
constexpr Color night(std::uint8_t alpha)
{
    return hex(0x030716, alpha);
}
constexpr Color mint(std::uint8_t alpha)
{
    return hex(0x8CFFD2, alpha);
}
constexpr Color snow = hex(0xEAFFF6);
constexpr Color rose = hex(0xFF9CE0);

// A curtain of light: how bright it is depends on the distance from its lower hem, which winds
// through the window, and on the column.
struct Curtain {
    int hemY, length, height, shift;
    int above; // rows of light over the hem
    Color color;
    int strength; // of 256
};
// clang-format off
constexpr Curtain curtains[] = {
    //  hem  len  h  shift  above  colour         strength
    {    62, 230, 14,   40,    74, hex(0x7A3CFF),      120},
    {    78, 310, 12,  180,    66, hex(0x1FE0A8),      165},
    {    92, 180,  7,   20,    46, hex(0x26B4E8),       95},
    {    50, 150,  9,   95,    34, hex(0xFF5FC8),       80},
};
// clang-format on
constexpr int below = 12; // rows that the light takes to fade under the hem

// Rays of uneven brightness, in 256ths.
int ray(int column)
{
    static constexpr int bright[] = {256, 214, 236, 190, 168, 222, 250, 204, 178, 196, 240};
    return bright[static_cast<std::size_t>(column / 5) % std::size(bright)];
}

void drawCurtain(Painter& painter, const Curtain& curtain)
{
    const auto [width, height] = painter.size();
    for (int x = 0; x < width; ++x) {
        const int hem = curtain.hemY + wave(x + curtain.shift, curtain.length, curtain.height);
        for (int y = std::max(0, hem - curtain.above); y < std::min(height, hem + below); ++y) {
            const int light =
                y < hem ? 256 - (hem - y) * 256 / curtain.above : 256 - (y - hem) * 256 / below;
            // In coarse steps, which a picture file packs well.
            constexpr int step = 10;
            const int alpha = light * light / 256 * curtain.strength / 256 * ray(x) / 256;
            Color color = curtain.color;
            color.alpha = static_cast<std::uint8_t>(alpha / step * step);
            painter.dot({x, y}, color);
        }
    }
}

void drawStars(Painter& painter)
{
    const auto [width, height] = painter.size();
    for (int y = titleHeight + 1; y < height / 5; ++y) {
        for (int x = 2; x < width - 2; ++x) {
            const auto mixed = (static_cast<std::uint32_t>(x) * 2654435761U) ^
                               (static_cast<std::uint32_t>(y) * 2246822519U);
            const std::uint32_t lot = (mixed ^ mixed >> 15) * 3266489917U >> 16;
            if (lot % 97 == 0)
                painter.dot({x, y}, white(static_cast<std::uint8_t>(90 + lot % 4 * 45)));
        }
    }
}

void drawHills(Painter& painter, int top)
{
    const auto [width, height] = painter.size();
    for (int x = 0; x < width; ++x) {
        const int far = top + wave(x + 60, 210, 6) + wave(x, 46, 2);
        const int near = top + 11 + wave(x + 130, 150, 5) + wave(x + 9, 34, 1);
        painter.fill({x, far, 1, height - far}, hex(0x0C1C33));
        painter.fill({x, near, 1, height - near}, hex(0x070F20));
    }
}

void decorate(Painter& painter, Window window)
{
    if (window == Window::sizable)
        return;
    drawStars(painter);
    for (const Curtain& curtain : curtains)
        drawCurtain(painter, curtain);
    drawHills(painter, window == Window::main ? 90 : 106);
    // The body's own edge lies on top of the sky.
    painter.box(painter.bounds(), {.fill = {{none}},
                                   .ringTop = hex(0x02040C),
                                   .ringBottom = hex(0x02040C),
                                   .light = white(70),
                                   .dark = white(26)});
}

Look look()
{
    const Surface sky{.fill = {{hex(0x0A0F2E), hex(0x0E1E45), hex(0x123252)}},
                      .ringTop = hex(0x02040C),
                      .ringBottom = hex(0x02040C)};
    Surface sizableSky = sky;
    sizableSky.fill = {{hex(0x111C3F)}};
    sizableSky.light = hex(0x3A4A78);
    sizableSky.dark = hex(0x080E24);

    const Surface glass{.fill = {{white(104), white(44), white(26)}},
                        .ringTop = night(170),
                        .ringBottom = night(200),
                        .light = white(120),
                        .dark = white(30),
                        .radius = 4};
    const Surface pressed{.fill = {{mint(60), mint(120)}},
                          .ringTop = night(220),
                          .ringBottom = night(180),
                          .light = night(120),
                          .dark = mint(150),
                          .radius = 4};
    Surface toggle = glass;
    toggle.fill = {
        {white(46), white(18)}
    };
    toggle.light = white(64);
    Surface toggleLit = glass;
    toggleLit.fill = {
        {mint(150), mint(84)}
    };
    toggleLit.light = mint(200);
    toggleLit.dark = mint(70);
    const Surface display{.fill = {{night(170), night(130)}},
                          .ringTop = night(210),
                          .ringBottom = white(70),
                          .light = night(120),
                          .radius = 4};
    Surface textDisplay = display;
    textDisplay.fill = {{night(150)}};
    const Surface groove{
        .fill = {{night(190)}}, .ringTop = night(220), .ringBottom = white(66), .radius = 3};
    const Surface thumb{.fill = {{white(235), white(150), mint(150)}},
                        .ringTop = night(200),
                        .ringBottom = night(220),
                        .light = white(255),
                        .dark = white(90),
                        .radius = 4};
    Surface thumbPressed = thumb;
    thumbPressed.fill = {
        {mint(170), mint(225)}
    };
    const Surface titleBar{.fill = {{white(30), white(10)}},
                           .ringTop = night(255),
                           .ringBottom = night(150),
                           .light = white(60)};
    Surface titleBarSelected = titleBar;
    titleBarSelected.fill = {
        {white(78), white(18)}
    };
    titleBarSelected.light = white(130);
    Surface titleButton = glass;
    titleButton.radius = 3;
    Surface titleButtonPressed = pressed;
    titleButtonPressed.radius = 3;

    return {
        .title = "AURORA",
        .body = sky,
        .sizableBody = sizableSky,
        .titleBar = titleBar,
        .titleBarSelected = titleBarSelected,
        .titleButton = titleButton,
        .titleButtonPressed = titleButtonPressed,
        .titleInk = white(120),
        .titleInkSelected = snow,
        .titleLine = white(30),
        .titleLineShadow = night(60),
        .titleLineSelected = white(90),
        .titleLineSelectedShadow = night(110),
        .display = display,
        .textDisplay = textDisplay,
        .groove = groove,
        .list = {.fill = {{hex(0x080D22)}}, .ringTop = hex(0x050817), .ringBottom = hex(0x3A4A78)},
        .button = glass,
        .buttonPressed = pressed,
        .toggle = toggle,
        .toggleLit = toggleLit,
        .togglePressed = pressed,
        .thumb = thumb,
        .thumbPressed = thumbPressed,
        .buttonInk = snow,
        .buttonInkPressed = white(255),
        .toggleInk = white(150),
        .toggleInkLit = white(255),
        .lampLit = none,
        .lampUnlit = none,
        .grip = night(150),
        .gripPressed = night(210),
        .emblem = Icon::star,
        .label = snow,
        .labelShadow = night(150),
        .stateLit = mint(255),
        .stateUnlit = white(84),
        .displayInk = snow,
        .displayDim = white(76),
        .play = mint(255),
        .pause = rose,
        .work = mint(255),
        .level = {{hex(0x35D7A4), hex(0x4FC3F7), hex(0xB388FF), rose}},
        .levelPitch = 4,
        .graph = {{rose, hex(0xB388FF), hex(0x4FC3F7), hex(0x35D7A4), mint(255)}},
        .graphGrid = white(50),
        .visBackground = hex(0x071226),
        .visDots = hex(0x12264A),
        .visBars = {{rose, hex(0xB388FF), hex(0x4FC3F7), hex(0x35D7A4), mint(255)}},
        .visTrace = {{snow, mint(255), hex(0x2F8F7A)}},
        .visPeak = snow,
        .listInk = hex(0xA9C7D9),
        .listInkCurrent = mint(255),
        .listSelection = hex(0x1B3A5C),
        .listFont = "Tahoma",
        .gutter = none,
        .isTranslucent = true,
        .digit =
            [](Painter& cell, int digit) {
                drawSegments(cell, digit, SegmentStyle::joined, snow, white(16));
                 },
        .decorate = decorate,
    };
}

}

SampleSkin aurora()
{
    const Look auroraLook = look();
    SampleSkin skin{.name = "aurora", .files = {}};
    for (const auto& [sheet, image] : drawSheets(auroraLook)) {
        if (sheet == "NUMS_EX" || sheet == "BALANCE")
            continue;
        auto png = SkinKit::PNGCodec::encode(image);
        SkinKit::check(png.has_value(), "a sheet too large for a PNG file");
        skin.files.push_back({SkinKit::Unicode::lowercased(sheet) + ".png", std::move(*png)});
    }
    skin.files.push_back({"viscolor.txt", support::bytes(visColorText(auroraLook))});
    skin.files.push_back({"pledit.txt", support::bytes(playlistText(auroraLook))});
    return skin;
}

}
