#include "SkinKit/Base/Unicode.h"
#include "examples/samples/Lettering.h"
#include "examples/samples/SampleSkins.h"
#include "examples/samples/Sheets.h"
#include "examples/samples/TextFiles.h"
#include "examples/samples/WindowParts.h"
#include "tests/support/BMPWriter.h"

namespace samples {
namespace {

constexpr Color black = hex(0x050607);
constexpr Color ice = hex(0x7FE9F2);
constexpr Color iceDim = hex(0x16333A);
constexpr Color amber = hex(0xFFB13B);
constexpr Color silver = hex(0xC3CBD4);
constexpr Color glassTop = hex(0x03080A);
constexpr Color glass = hex(0x061114);

// Brushed metal: each row a little lighter or darker than it would be. The rows are irregular, and
// the same in every window.
void brush(Painter& painter, Window window)
{
    constexpr int strengths[] = {5, 0, 9, 3, 0, 6, 2, 0, 8, 1, 4};
    if (window == Window::sizable)
        return;
    const Size size = painter.size();
    for (int y = 2; y < size.height - 2; ++y)
        painter.fill(
            {2, y, size.width - 4, 1},
            hex(0xFFFFFF, static_cast<std::uint8_t>(
                              strengths[static_cast<std::size_t>(y) % std::size(strengths)])));
}

// A plate around the lower controls, set off by a fine groove.
void decorate(Painter& painter, Window window)
{
    brush(painter, window);
    if (window != Window::main)
        return;
    for (const int y : {18, 85}) {
        painter.fill({5, y, 265, 1}, hex(0x000000, 110));
        painter.fill({5, y + 1, 265, 1}, hex(0xFFFFFF, 28));
    }
}

Look look()
{
    const Surface metal{.fill = {{hex(0x454C56), hex(0x2B3038), hex(0x1B1F25)}},
                        .ringTop = black,
                        .ringBottom = black,
                        .light = hex(0x6B7582),
                        .dark = hex(0x0E1013)};
    Surface sizableMetal = metal;
    sizableMetal.fill = {{hex(0x2A2F36)}};

    const Surface button{.fill = {{hex(0x6A737F), hex(0x474E58), hex(0x343A43)}},
                         .ringTop = hex(0x0B0D10),
                         .ringBottom = hex(0x0B0D10),
                         .light = hex(0x8E98A5),
                         .dark = hex(0x23272D),
                         .radius = 2};
    const Surface pressed{.fill = {{hex(0x22272D), hex(0x2E343C)}},
                          .ringTop = hex(0x08090B),
                          .ringBottom = hex(0x08090B),
                          .light = hex(0x14171B),
                          .dark = hex(0x4A525D),
                          .radius = 2};
    const Surface toggle{.fill = {{hex(0x3A414A), hex(0x2A2F36)}},
                         .ringTop = hex(0x0B0D10),
                         .ringBottom = hex(0x0B0D10),
                         .light = hex(0x59626D),
                         .dark = hex(0x1C2025),
                         .radius = 2};
    const Surface toggleLit{.fill = {{hex(0x2A2620), hex(0x3A3226)}},
                            .ringTop = hex(0x0B0D10),
                            .ringBottom = hex(0x0B0D10),
                            .light = hex(0x191714),
                            .dark = hex(0x5A4A2E),
                            .radius = 2};
    const Surface display{.fill = {{glassTop, glass}},
                          .ringTop = hex(0x0A0C0E),
                          .ringBottom = hex(0x59626D),
                          .light = hex(0x000000),
                          .dark = hex(0x0E2025),
                          .radius = 2};
    Surface textDisplay = display;
    textDisplay.fill = {{glass}};
    const Surface groove{.fill = {{hex(0x07090A)}},
                         .ringTop = hex(0x0D0F12),
                         .ringBottom = hex(0x525B66),
                         .radius = 2};
    const Surface thumb{.fill = {{hex(0xC5CDD6), hex(0x7C8692), hex(0x59626D)}},
                        .ringTop = hex(0x0B0D10),
                        .ringBottom = hex(0x0B0D10),
                        .light = hex(0xEEF2F6),
                        .dark = hex(0x3B424B),
                        .radius = 2};
    Surface thumbPressed = thumb;
    thumbPressed.fill = {
        {hex(0x7A838E), hex(0x59626D), hex(0x8C96A2)}
    };
    thumbPressed.light = hex(0x4A525D);

    const Surface titleBar{.fill = {{hex(0x343A42), hex(0x22262C)}},
                           .ringTop = black,
                           .ringBottom = black,
                           .light = hex(0x4C555F),
                           .dark = hex(0x17191D)};
    const Surface titleBarSelected{.fill = {{hex(0x5A636E), hex(0x2C3139)}},
                                   .ringTop = black,
                                   .ringBottom = black,
                                   .light = hex(0x86919E),
                                   .dark = hex(0x17191D)};
    const Surface titleButton{.fill = {{hex(0x3A414A), hex(0x1F2328)}},
                              .ringTop = hex(0x0B0D10),
                              .ringBottom = hex(0x0B0D10),
                              .light = hex(0x6B7582),
                              .dark = hex(0x15181C),
                              .radius = 2};

    return {
        .title = "GRAPHITE",
        .body = metal,
        .sizableBody = sizableMetal,
        .titleBar = titleBar,
        .titleBarSelected = titleBarSelected,
        .titleButton = titleButton,
        .titleButtonPressed = pressed,
        .titleInk = hex(0x7C8692),
        .titleInkSelected = hex(0xE6ECF2),
        .titleLine = hex(0x4A525D),
        .titleLineShadow = hex(0x15181C),
        .titleLineSelected = hex(0x8A95A2),
        .titleLineSelectedShadow = hex(0x1D2126),
        .display = display,
        .textDisplay = textDisplay,
        .groove = groove,
        .list = {.fill = {{hex(0x0A0D10)}}, .ringTop = hex(0x0B0D10), .ringBottom = hex(0x59626D)},
        .button = button,
        .buttonPressed = pressed,
        .toggle = toggle,
        .toggleLit = toggleLit,
        .togglePressed = pressed,
        .thumb = thumb,
        .thumbPressed = thumbPressed,
        .buttonInk = hex(0xE6ECF2),
        .buttonInkPressed = ice,
        .toggleInk = hex(0x97A1AD),
        .toggleInkLit = amber,
        .lampLit = amber,
        .lampUnlit = hex(0x15181C),
        .grip = hex(0x3B424B),
        .gripPressed = ice,
        .label = silver,
        .labelShadow = hex(0x000000, 150),
        .stateLit = ice,
        .stateUnlit = hex(0x6B7582),
        .displayInk = ice,
        .displayDim = hex(0x2F5A63),
        .play = hex(0x6DF28E),
        .pause = amber,
        .work = hex(0x6DF28E),
        .level = {{hex(0x1E6B78), ice, amber}},
        .levelPitch = 3,
        .graph = {{amber, hex(0xD9E39A), ice, hex(0x2E8FA0), hex(0x1E5F70)}},
        .graphGrid = iceDim,
        .visBackground = glass,
        .visDots = hex(0x0F2429),
        .visBars = {{amber, hex(0xE8D27A), hex(0x9FE8D0), ice, hex(0x2E9BB0), hex(0x1B5F75)}},
        .visTrace = {{hex(0xE8FBFF), ice, hex(0x2A8090)}},
        .visPeak = hex(0xE6ECF2),
        .listInk = hex(0x9FB3BD),
        .listInkCurrent = ice,
        .listSelection = hex(0x1D4650),
        .listFont = "Arial",
        .gutter = hex(0x1B1F25),
        .digit =
            [](Painter& cell, int digit) {
                drawSegments(cell, digit, SegmentStyle::gapped, ice, hex(0x0A1C20));
                 },
        .decorate = decorate,
    };
}

}

SampleSkin graphite()
{
    const Look graphiteLook = look();
    SampleSkin skin{.name = "graphite", .files = {}};
    for (const auto& [sheet, image] : drawSheets(graphiteLook))
        if (sheet != "NUMS_EX")
            skin.files.push_back(
                {SkinKit::Unicode::lowercased(sheet) + ".bmp", support::encodeBMP(image, 24)});
    skin.files.push_back({"viscolor.txt", support::bytes(visColorText(graphiteLook))});
    skin.files.push_back({"pledit.txt", support::bytes(playlistText(graphiteLook))});
    return skin;
}

}
