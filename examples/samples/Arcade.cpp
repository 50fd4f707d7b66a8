#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Graphics/Canvas.h"
#include "examples/samples/CursorFiles.h"
#include "examples/samples/SampleSkins.h"
#include "examples/samples/Sheets.h"
#include "examples/samples/TextFiles.h"
#include "examples/samples/WindowParts.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/Pictures.h"

#include <algorithm>
#include <array>
#include <optional>

namespace samples {
namespace {

// The sixteen colours.
constexpr Color ink = hex(0x0B0620);
constexpr Color midnight = hex(0x1C0F3F);
constexpr Color indigo = hex(0x34196B);
constexpr Color violet = hex(0x5A2A9C);
constexpr Color purple = hex(0x8E3FC4);
constexpr Color magenta = hex(0xD94FB0);
constexpr Color pink = hex(0xFF7FA8);
constexpr Color orange = hex(0xFFA64D);
constexpr Color yellow = hex(0xFFE36B);
constexpr Color white = hex(0xFFFFFF);
constexpr Color ice = hex(0xA8F0FF);
constexpr Color cyan = hex(0x35D0F0);
constexpr Color blue = hex(0x1B6FC0);
constexpr Color green = hex(0x5BE36B);
constexpr Color slate = hex(0x6C6794);
constexpr Color lilac = hex(0xC4B8E8);

Ramp dithered(std::vector<Color> stops)
{
    return {std::move(stops), Ramp::Steps::dithered};
}

// A sun going down behind the far edge of a plain of glowing lines.
constexpr int horizon = 84;

void drawSun(Painter& painter)
{
    constexpr Rect sun{158, 54, 72, 72};
    for (int y = sun.y; y < horizon; ++y) {
        // The lower half is cut by ever wider bars of sky.
        const int fromMiddle = y - sun.y - sun.height / 4;
        if (fromMiddle >= 0 && fromMiddle % 4 < 2)
            continue;
        for (int x = sun.x; x < sun.right(); ++x)
            if (holds(sun, sun.width / 2, {x, y}))
                painter.dot(
                    {x, y},
                    dithered({yellow, orange, pink, magenta}).at(y - sun.y, horizon - sun.y, x));
    }
}

void drawPlain(Painter& painter)
{
    const auto [width, height] = painter.size();
    painter.fill({2, horizon, width - 4, height - horizon - 2}, midnight);
    painter.fill({2, horizon, width - 4, 1}, pink);
    for (int y = horizon + 3, gap = 3; y < height - 2; y += gap, gap += 2)
        painter.fill({2, y, width - 4, 1}, purple);
    // Lines that would meet above the horizon, each drawn as one run a row.
    constexpr int vanishingY = 24;
    constexpr int spacing = 16; // on the horizon
    Painter plain = painter.part({2, 0, width - 4, height - 2});
    const auto column = [&](int line, int y) {
        return width / 2 + line * spacing * (y - vanishingY) / (horizon - vanishingY);
    };
    for (int line = -8; line <= 8; ++line)
        for (int y = horizon + 1; y < height; ++y) {
            const int from = std::min(column(line, y), column(line, y + 1));
            const int to = std::max(column(line, y), column(line, y + 1));
            plain.fill({from, y, std::max(to - from, 1), 1}, purple);
        }
}

void decorate(Painter& painter, Window window)
{
    if (window == Window::main) {
        drawSun(painter);
        drawPlain(painter);
    }
    // The equalizer's sliders are cut from one picture, so all stand on the same plate.
    if (window == Window::equalizer)
        painter.box({14, 37, 247, 65},
                    {.fill = {{indigo}}, .ringTop = midnight, .ringBottom = purple});
}

Look look()
{
    const Surface body{.fill = dithered({ink, midnight, indigo, violet, purple}),
                       .ringTop = ink,
                       .ringBottom = ink,
                       .light = purple,
                       .dark = purple};
    Surface sizableBody = body;
    sizableBody.fill = {{indigo}};
    const Surface button{
        .fill = {{violet}}, .ringTop = ink, .ringBottom = ink, .light = pink, .dark = indigo};
    const Surface pressed{
        .fill = {{indigo}}, .ringTop = ink, .ringBottom = ink, .light = midnight, .dark = magenta};
    const Surface toggle{
        .fill = {{indigo}}, .ringTop = ink, .ringBottom = ink, .light = purple, .dark = midnight};
    const Surface toggleLit{
        .fill = {{blue}}, .ringTop = ink, .ringBottom = ink, .light = cyan, .dark = indigo};
    const Surface display{
        .fill = {{ink}}, .ringTop = midnight, .ringBottom = purple, .light = ink, .dark = ink};
    const Surface groove{.fill = {{ink}}, .ringTop = midnight, .ringBottom = purple};
    const Surface thumb{.fill = dithered({yellow, orange}),
                        .ringTop = ink,
                        .ringBottom = ink,
                        .light = white,
                        .dark = magenta};
    Surface thumbPressed = thumb;
    thumbPressed.fill = {{pink}};
    thumbPressed.light = magenta;
    thumbPressed.dark = yellow;
    const Surface titleBar{
        .fill = {{indigo}}, .ringTop = ink, .ringBottom = ink, .light = violet, .dark = midnight};
    const Surface titleBarSelected{
        .fill = {{magenta, purple, violet}, Ramp::Steps::banded},
        .ringTop = ink,
        .ringBottom = ink,
        .light = pink,
        .dark = indigo
    };

    return {
        .title = "ARCADE",
        .body = body,
        .sizableBody = sizableBody,
        .titleBar = titleBar,
        .titleBarSelected = titleBarSelected,
        .titleButton = button,
        .titleButtonPressed = pressed,
        .titleInk = slate,
        .titleInkSelected = white,
        .titleLine = violet,
        .titleLineShadow = midnight,
        .titleLineSelected = yellow,
        .titleLineSelectedShadow = indigo,
        .display = display,
        .textDisplay = display,
        .groove = groove,
        .list = {.fill = {{ink}}, .ringTop = midnight, .ringBottom = purple},
        .button = button,
        .buttonPressed = pressed,
        .toggle = toggle,
        .toggleLit = toggleLit,
        .togglePressed = pressed,
        .thumb = thumb,
        .thumbPressed = thumbPressed,
        .buttonInk = white,
        .buttonInkPressed = yellow,
        .toggleInk = lilac,
        .toggleInkLit = white,
        .lampLit = none,
        .lampUnlit = none,
        .grip = magenta,
        .gripPressed = white,
        .emblem = Icon::ghost,
        .label = ice,
        .stateLit = yellow,
        .stateUnlit = slate,
        .displayInk = cyan,
        .displayDim = slate,
        .play = green,
        .pause = yellow,
        .work = green,
        .level = dithered({blue, cyan, green, yellow, orange, pink}
          ),
        .levelPitch = 3,
        .graph = dithered({pink, orange, yellow, green, cyan}
          ),
        .graphGrid = indigo,
        .visBackground = ink,
        .visDots = midnight,
        .visBars = {{pink, orange, yellow, green, cyan, blue}},
        .visTrace = {{white, ice, cyan, blue}},
        .visPeak = white,
        .listInk = cyan,
        .listInkCurrent = yellow,
        .listSelection = violet,
        .listFont = "Courier New",
        .gutter = ink,
        .digit = [](Painter& cell, int digit) { drawBlockDigit(cell, digit, cyan); },
        .decorate = decorate,
    };
}

// How each sheet is kept: bits a pixel, and whether its runs are packed.
struct Encoding {
    std::string_view sheet;
    int bitCount;
    bool isPacked;
};
// clang-format off
constexpr Encoding encodings[] = {
    {"BALANCE",  8, true},
    {"CBUTTONS", 4, false},
    {"EQMAIN",   8, true},
    {"EQ_EX",    4, true},
    {"GEN",      4, true},
    {"MAIN",     8, true},
    {"MONOSTER", 4, false},
    {"NUMS_EX",  1, false},  // two colours, like the text
    {"PLAYPAUS", 4, false},
    {"PLEDIT",   4, true},
    {"POSBAR",   8, false},
    {"SHUFREP",  8, false},
    {"TEXT",     1, false},
    {"TITLEBAR", 4, true},
    {"VOLUME",   4, true},
};
// clang-format on

constexpr Size cursorSize{32, 32};

SkinKit::Pixel pixelOf(Color color)
{
    return SkinKit::packPixel(color.red, color.green, color.blue, color.alpha);
}

Image cursorImage(const std::vector<std::string_view>& rows, const support::Legend& legend)
{
    const Image drawn = support::picture(rows, legend);
    return paintedImage(cursorSize, [&](Painter& painter) { painter.put(drawn, {0, 0}); });
}

// clang-format off
const std::vector<std::string_view> arrow{
    "o...........",
    "oo..........",
    "o#o.........",
    "o##o........",
    "o###o.......",
    "o####o......",
    "o#####o.....",
    "o######o....",
    "o#######o...",
    "o########o..",
    "o#########o.",
    "o######ooooo",
    "o###o##o....",
    "o##o.o##o...",
    "o#o..o##o...",
    "oo....o##o..",
    "o.....o##o..",
    ".......oo...",
};
const std::vector<std::string_view> cross{
    ".oo.......oo.",
    "o##o.....o##o",
    "o###o...o###o",
    ".o###o.o###o.",
    "..o###o###o..",
    "...o#####o...",
    "....o###o....",
    "...o#####o...",
    "..o###o###o..",
    ".o###o.o###o.",
    "o###o...o###o",
    "o##o.....o##o",
    ".oo.......oo.",
};
const std::vector<std::string_view> sideways{
    "....oo.....oo....",
    "...o#o.....o#o...",
    "..o##o.....o##o..",
    ".o###ooooooo###o.",
    "o####+++++++####o",
    ".o###ooooooo###o.",
    "..o##o.....o##o..",
    "...o#o.....o#o...",
    "....oo.....oo....",
};
const std::vector<std::string_view> fourWays{
    "......ooo......",
    ".....o#o#o.....",
    "....o##+##o....",
    "....ooo+ooo....",
    "..oo..o+o..oo..",
    ".o#o..o+o..o#o.",
    "o##ooooooooo##o",
    "o#++++o#o++++#o",
    "o##ooooooooo##o",
    ".o#o..o+o..o#o.",
    "..oo..o+o..oo..",
    "....ooo+ooo....",
    "....o##+##o....",
    ".....o#o#o.....",
    "......ooo......",
};
// clang-format on

void addCursors(SampleSkin& skin)
{
    const auto legend = [](Color outline, Color fill, Color middle) {
        return support::Legend{
            {'.', 0               },
            {'o', pixelOf(outline)},
            {'#', pixelOf(fill)   },
            {'+', pixelOf(middle) }
        };
    };

    const Pointer pointer{
        cursorImage(arrow, legend(hex(0x000000), white, white)), {0, 0}
    };
    skin.files.push_back({"normal.cur", encodePointer(pointer, 1)});

    // Its shadow is half transparent, which only the deepest kind of pointer can show.
    const auto shade = SkinKit::packPixel(0, 0, 0, 96);
    SkinKit::Canvas closing(cursorSize);
    closing.draw(support::picture(cross,
                                  {
                                      {'.', 0    },
                                      {'o', shade},
                                      {'#', shade}
    }),
                 Point{2, 2});
    closing.draw(support::picture(cross, legend(ink, pink, pink)), Point{0, 0});
    skin.files.push_back({
        "close.cur", encodePointer({closing.image(), {6, 6}},
         32)
    });

    const Pointer sliding{
        cursorImage(sideways, legend(ink, yellow, orange)), {8, 4}
    };
    skin.files.push_back({"posbar.cur", encodePointer(sliding, 8)});

    const std::array<Color, 3> glow{blue, cyan, ice};
    std::vector<Pointer> frames;
    for (const Color color : glow)
        frames.push_back({
            cursorImage(fourWays, legend(ink, white, color)), {7, 7}
        });
    constexpr PointerStep steps[] = {
        {0, 12},
        {1, 8 },
        {2, 20},
        {1, 8 }
    };
    skin.files.push_back({"titlebar.ani", encodeMovingPointer(frames, steps, 8)});
}

}

SampleSkin arcade()
{
    const Look arcadeLook = look();
    const auto sheets = drawSheets(arcadeLook);
    SampleSkin skin{.name = "arcade", .files = {}};
    for (const auto& [sheet, bitCount, isPacked] : encodings) {
        const Image& image = sheets.at(std::string(sheet));
        skin.files.push_back(
            {SkinKit::Unicode::lowercased(sheet) + ".bmp",
             isPacked ? support::encodeRLE(image, bitCount) : support::encodeBMP(image, bitCount)});
    }
    skin.files.push_back({"viscolor.txt", support::bytes(visColorText(arcadeLook))});
    skin.files.push_back({"pledit.txt", support::bytes(playlistText(arcadeLook))});
    addCursors(skin);
    return skin;
}

}
