#include "SkinKit/Layout/MainSliders.h"
#include "examples/samples/Sheets.h"
#include "examples/samples/WindowParts.h"

// The equalizer's window and its shaded strip.
namespace samples {
namespace {

namespace Sliders = SkinKit::MainSliders;

// Window pixels, origin top left.
constexpr Size windowSize{275, 116};
// clang-format off
//                           x    y    w   h
constexpr Rect onButton  {  14,  18,  26, 12};
constexpr Rect autoButton{  40,  18,  32, 12};
constexpr Rect presets   { 217,  18,  44, 12};
constexpr Rect graph     {  86,  17, 113, 19};
constexpr Rect preamp    {  21,  38,  14, 63};
constexpr Rect shade     { 254,   3,   9,  9};
constexpr Rect close     { 264,   3,   9,  9};
// clang-format on
constexpr int bandCount = 10;
constexpr int bandPitch = 18;
constexpr Rect band(int index)
{
    return {78 + bandPitch * index, preamp.y, preamp.width, preamp.height};
}
constexpr int labelY = preamp.bottom() + 2;

// The strip of slider backgrounds: two rows of frames.
constexpr int framesPerRow = 14;
constexpr Size framePitch{preamp.width + 1, preamp.height + 2};

// The thumb's way inside a slider, and the groove in the middle of it.
constexpr Size thumbSize{11, 11};
constexpr int thumbTravel = 51;
constexpr Rect groove{4, 1, 5, preamp.height - 2};

void drawEqualizerTitle(Painter bar, const Look& look, bool isSelected)
{
    constexpr int margin = 8;
    drawTitleBar(bar, look,
                 {.caption = "EQUALIZER",
                  .isSelected = isSelected,
                  .linesFrom = margin,
                  .linesTo = shade.x - margin / 2,
                  .window = Window::equalizer});
    drawTitleButton(bar.part(shade), look, Icon::shade, false);
    drawTitleButton(bar.part(close), look, Icon::close, false);
}

void drawScale(Painter& painter, const Look& look)
{
    struct Mark {
        std::string_view text;
        int y;
    };
    constexpr int top = preamp.y + thumbSize.height / 2;
    constexpr Mark marks[] = {
        {"+12", top                  },
        {"0",   top + thumbTravel / 2},
        {"-12", top + thumbTravel    }
    };
    constexpr int left = preamp.right();
    constexpr int right = band(0).x;
    for (const auto& [text, y] : marks) {
        const int x = left + (right - left - textWidth(text)) / 2;
        drawLabel(painter, {x, y - 2}, text, look);
        painter.fill({left + 3, y, x - left - 6, 1}, look.stateUnlit);
        painter.fill({x + textWidth(text) + 3, y, right - x - textWidth(text) - 6, 1},
                     look.stateUnlit);
    }

    constexpr std::string_view bands[bandCount] = {"60", "170", "310", "600", "1K",
                                                   "3K", "6K",  "12K", "14K", "16K"};
    const auto center = [](const Rect& slider, std::string_view text) {
        return slider.x + (slider.width - textWidth(text)) / 2;
    };
    drawLabel(painter, {center(preamp, "PRE"), labelY}, "PRE", look);
    for (int i = 0; i < bandCount; ++i)
        drawLabel(painter, {center(band(i), bands[i]), labelY}, bands[i], look);
}

void drawGraphGrid(Painter painter, const Look& look)
{
    painter.box(painter.bounds(), look.textDisplay);
    constexpr int bandSpacing = 12;
    const Size size = painter.size();
    for (int x = 2; x < size.width - 1; x += bandSpacing)
        for (int y = 2; y < size.height - 2; y += 2)
            painter.dot({x, y}, look.graphGrid);
    painter.fill({1, size.height / 2, size.width - 2, 1}, look.graphGrid);
}

Image equalizerWindow(const Look& look)
{
    return paintedImage(windowSize, [&](Painter& painter) {
        drawBody(painter, look, Window::equalizer);
        drawScale(painter, look);
        drawGraphGrid(painter.part(graph), look);
    });
}

void drawSliderFrames(Sheets& sheets, const Look& look, const Image& window)
{
    Painter strip = sheets.sprite("EQ_SLIDER_BACKGROUND");
    const Rect inner = inset(groove, 1);
    for (int frame = 0; frame < Sliders::frameCount; ++frame) {
        const Point at{frame % framesPerRow * framePitch.width,
                       frame / framesPerRow * framePitch.height};
        Painter slider = strip.part(sizedBy(at, preamp.size()));
        drawBehind(slider, look, window, preamp.origin());
        slider.box(groove, look.groove);

        // Filled from the foot up to the middle of the thumb.
        const int last = Sliders::frameCount - 1;
        const int filled = inner.height * frame / last;
        for (int y = inner.height - filled; y < inner.height; ++y)
            if (look.levelPitch == 0 || y % look.levelPitch != look.levelPitch - 1)
                slider.fill({inner.x, inner.y + y, inner.width, 1},
                            look.level.at(inner.height - 1 - y, inner.height));
    }

    for (const bool isPressed : {false, true}) {
        Painter thumb = sheets.sprite(isPressed ? "EQ_SLIDER_THUMB_SELECTED" : "EQ_SLIDER_THUMB");
        drawBehind(thumb, look, window, {preamp.x + 1, preamp.y + thumbTravel / 2});
        drawThumb(thumb, look, Grip::horizontal, isPressed);
    }
}

void drawButtons(Sheets& sheets, const Look& look, const Image& window)
{
    struct Toggle {
        std::string_view sprite, caption;
        Rect place;
        ButtonState state;
    };
    constexpr Toggle toggles[] = {
        {"EQ_ON_BUTTON",                      "ON",   onButton,   {}                            },
        {"EQ_ON_BUTTON_DEPRESSED",            "ON",   onButton,   {.pressed = true}             },
        {"EQ_ON_BUTTON_SELECTED",             "ON",   onButton,   {.lit = true}                 },
        {"EQ_ON_BUTTON_SELECTED_DEPRESSED",   "ON",   onButton,   {.pressed = true, .lit = true}},
        {"EQ_AUTO_BUTTON",                    "AUTO", autoButton, {}                            },
        {"EQ_AUTO_BUTTON_DEPRESSED",          "AUTO", autoButton, {.pressed = true}             },
        {"EQ_AUTO_BUTTON_SELECTED",           "AUTO", autoButton, {.lit = true}                 },
        {"EQ_AUTO_BUTTON_SELECTED_DEPRESSED", "AUTO", autoButton, {.pressed = true, .lit = true}},
    };
    for (const auto& [name, caption, place, state] : toggles) {
        Painter sprite = sheets.sprite(name);
        drawBehind(sprite, look, window, place.origin());
        drawToggle(sprite, look, caption, state);
    }
    for (const bool isPressed : {false, true}) {
        Painter sprite =
            sheets.sprite(isPressed ? "EQ_PRESETS_BUTTON_SELECTED" : "EQ_PRESETS_BUTTON");
        drawBehind(sprite, look, window, presets.origin());
        drawTextButton(sprite, look, "PRESETS", "", isPressed);
    }
}

// A title button that stands at `at` in its bar.
void drawButtonOnBar(Painter button, const Look& look, Icon icon, Point at, bool isPressed)
{
    drawBarBehind(button, look, {0, 0, windowSize.width, titleHeight}, at);
    drawTitleButton(button, look, icon, isPressed);
}

void drawShadeBar(Painter bar, const Look& look, bool isSelected)
{
    drawBareBar(bar, look, isSelected, Window::shaded);
    drawText(bar, {7, 5}, "EQUALIZER", isSelected ? look.titleInkSelected : look.titleInk);
    for (const auto& slider : {Sliders::eqShadeVolume, Sliders::eqShadeBalance})
        bar.box({slider.origin.x, slider.origin.y, slider.size.width, slider.thumbSize.height},
                look.groove);
    drawTitleButton(bar.part(shade), look, Icon::unshade, false);
    drawTitleButton(bar.part(close), look, Icon::close, false);
}

void drawShadedEqualizer(Sheets& sheets, const Look& look)
{
    drawShadeBar(sheets.sprite("EQ_SHADE_BACKGROUND"), look, false);
    drawShadeBar(sheets.sprite("EQ_SHADE_BACKGROUND_SELECTED"), look, true);
    for (const auto thumb : {"EQ_SHADE_VOLUME_SLIDER_LEFT", "EQ_SHADE_VOLUME_SLIDER_CENTER",
                             "EQ_SHADE_VOLUME_SLIDER_RIGHT", "EQ_SHADE_BALANCE_SLIDER_LEFT",
                             "EQ_SHADE_BALANCE_SLIDER_CENTER", "EQ_SHADE_BALANCE_SLIDER_RIGHT"})
        drawThumb(sheets.sprite(thumb), look, Grip::small, false);
    drawButtonOnBar(sheets.sprite("EQ_MAXIMIZE_BUTTON_ACTIVE"), look, Icon::unshade, shade.origin(),
                    true);
    drawButtonOnBar(sheets.sprite("EQ_MINIMIZE_BUTTON_ACTIVE"), look, Icon::shade, shade.origin(),
                    true);
    drawButtonOnBar(sheets.sprite("EQ_SHADE_CLOSE_BUTTON"), look, Icon::close, close.origin(),
                    false);
    drawButtonOnBar(sheets.sprite("EQ_SHADE_CLOSE_BUTTON_ACTIVE"), look, Icon::close,
                    close.origin(), true);
}

}

void drawEqualizerSheets(Sheets& sheets, const Look& look)
{
    const Image window = equalizerWindow(look);
    sheets.sprite("EQ_WINDOW_BACKGROUND").put(window, {0, 0});
    drawEqualizerTitle(sheets.sprite("EQ_TITLE_BAR"), look, false);
    drawEqualizerTitle(sheets.sprite("EQ_TITLE_BAR_SELECTED"), look, true);
    drawButtonOnBar(sheets.sprite("EQ_CLOSE_BUTTON"), look, Icon::close, close.origin(), false);
    drawButtonOnBar(sheets.sprite("EQ_CLOSE_BUTTON_ACTIVE"), look, Icon::close, close.origin(),
                    true);
    drawSliderFrames(sheets, look, window);
    drawButtons(sheets, look, window);

    drawGraphGrid(sheets.sprite("EQ_GRAPH_BACKGROUND"), look);
    Painter colors = sheets.sprite("EQ_GRAPH_LINE_COLORS");
    colors.shade(colors.bounds(), look.graph);
    Painter line = sheets.sprite("EQ_PREAMP_LINE");
    line.fill(line.bounds(), look.displayDim);

    drawShadedEqualizer(sheets, look);
}

}
