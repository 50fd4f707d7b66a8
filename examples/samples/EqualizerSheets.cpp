#include "SkinKit/Windows/Equalizer/EQGraph.h"
#include "SkinKit/Windows/Equalizer/EQLayout.h"
#include "SkinKit/Windows/Main/MainSliders.h"
#include "examples/samples/Sheets.h"
#include "examples/samples/WindowParts.h"

// The equalizer's window and its shaded strip.
namespace samples {
namespace {

namespace Graph = SkinKit::EQGraph;
namespace Layout = SkinKit::EQLayout;
namespace Sliders = SkinKit::MainSliders;

constexpr Rect preamp = sizedBy(Layout::preampOrigin, Layout::bandSize);
constexpr int labelY = preamp.bottom() + 2;
constexpr Rect groove{4, 1, 5, preamp.height - 2}; // in the middle of a slider

void drawEqualizerTitle(Painter bar, const Look& look, bool isSelected)
{
    constexpr int margin = 8;
    drawTitleBar(bar, look,
                 {.caption = "EQUALIZER",
                  .isSelected = isSelected,
                  .linesFrom = margin,
                  .linesTo = Layout::shadeButton.x - margin / 2,
                  .window = Window::equalizer});
    drawTitleButton(bar.part(Layout::shadeButton), look, Icon::shade, false);
    drawTitleButton(bar.part(Layout::closeButton), look, Icon::close, false);
}

void drawScale(Painter& painter, const Look& look)
{
    struct Mark {
        std::string_view text;
        int y;
    };
    constexpr int top = preamp.y + Layout::thumbSize.height / 2;
    constexpr Mark marks[] = {
        {"+12", top                          },
        {"0",   top + Layout::thumbTravel / 2},
        {"-12", top + Layout::thumbTravel    }
    };
    constexpr int left = preamp.right();
    constexpr int right = Layout::bandStrip.x;
    for (const auto& [text, y] : marks) {
        const int x = left + (right - left - textWidth(text)) / 2;
        drawLabel(painter, {x, y - 2}, text, look);
        painter.fill({left + 3, y, x - left - 6, 1}, look.stateUnlit);
        painter.fill({x + textWidth(text) + 3, y, right - x - textWidth(text) - 6, 1},
                     look.stateUnlit);
    }

    constexpr std::string_view bands[Layout::bandCount] = {"60", "170", "310", "600", "1K",
                                                           "3K", "6K",  "12K", "14K", "16K"};
    const auto drawBelow = [&](Point slider, std::string_view text) {
        const int x = slider.x + (Layout::bandSize.width - textWidth(text)) / 2;
        drawLabel(painter, {x, labelY}, text, look);
    };
    drawBelow(Layout::preampOrigin, "PRE");
    for (int i = 0; i < Layout::bandCount; ++i)
        drawBelow(Layout::bandOrigin(i), bands[i]);
}

void drawGraphGrid(Painter painter, const Look& look)
{
    painter.box(painter.bounds(), look.textDisplay);
    const Size size = painter.size();
    for (int x = Graph::paddingLeft; x < size.width - 1; x += Graph::bandSpacingX)
        for (int y = 2; y < size.height - 2; y += 2)
            painter.dot({x, y}, look.graphGrid);
    painter.fill({1, size.height / 2, size.width - 2, 1}, look.graphGrid);
}

Image equalizerWindow(const Look& look)
{
    return paintedImage(Layout::windowSize, [&](Painter& painter) {
        drawBody(painter, look, Window::equalizer);
        drawScale(painter, look);
        drawGraphGrid(painter.part(Layout::graph), look);
    });
}

void drawSliderFrames(Sheets& sheets, const Look& look, const Image& window)
{
    Painter strip = sheets.sprite("EQ_SLIDER_BACKGROUND");
    const Rect inner = inset(groove, 1);
    for (int frame = 0; frame < Layout::frameCount; ++frame) {
        Painter slider = strip.part(Layout::bandFrameRect(strip.bounds(), frame));
        drawBehind(slider, look, window, preamp.origin());
        slider.box(groove, look.groove);

        // Filled from the foot up to the middle of the thumb.
        const int last = Layout::frameCount - 1;
        const int filled = inner.height * frame / last;
        for (int y = inner.height - filled; y < inner.height; ++y)
            if (look.levelPitch == 0 || y % look.levelPitch != look.levelPitch - 1)
                slider.fill({inner.x, inner.y + y, inner.width, 1},
                            look.level.at(inner.height - 1 - y, inner.height));
    }

    for (const bool isPressed : {false, true}) {
        Painter thumb = sheets.sprite(isPressed ? "EQ_SLIDER_THUMB_SELECTED" : "EQ_SLIDER_THUMB");
        drawBehind(thumb, look, window,
                   {preamp.x + Layout::thumbInsetX, preamp.y + Layout::thumbTravel / 2});
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
        {"EQ_ON_BUTTON",                      "ON",   Layout::onButton,   {}                            },
        {"EQ_ON_BUTTON_DEPRESSED",            "ON",   Layout::onButton,   {.pressed = true}             },
        {"EQ_ON_BUTTON_SELECTED",             "ON",   Layout::onButton,   {.lit = true}                 },
        {"EQ_ON_BUTTON_SELECTED_DEPRESSED",   "ON",   Layout::onButton,   {.pressed = true, .lit = true}},
        {"EQ_AUTO_BUTTON",                    "AUTO", Layout::autoButton, {}                            },
        {"EQ_AUTO_BUTTON_DEPRESSED",          "AUTO", Layout::autoButton, {.pressed = true}             },
        {"EQ_AUTO_BUTTON_SELECTED",           "AUTO", Layout::autoButton, {.lit = true}                 },
        {"EQ_AUTO_BUTTON_SELECTED_DEPRESSED",
         "AUTO",                                      Layout::autoButton,
         {.pressed = true, .lit = true}                                                                 },
    };
    for (const auto& [name, caption, place, state] : toggles) {
        Painter sprite = sheets.sprite(name);
        drawBehind(sprite, look, window, place.origin());
        drawToggle(sprite, look, caption, state);
    }
    for (const bool isPressed : {false, true}) {
        Painter sprite =
            sheets.sprite(isPressed ? "EQ_PRESETS_BUTTON_SELECTED" : "EQ_PRESETS_BUTTON");
        drawBehind(sprite, look, window, Layout::presetsButton.origin());
        drawTextButton(sprite, look, "PRESETS", "", isPressed);
    }
}

// A title button that stands at `at` in its bar.
void drawButtonOnBar(Painter button, const Look& look, Icon icon, Point at, bool isPressed)
{
    drawBarBehind(button, look, {0, 0, Layout::windowSize.width, titleHeight}, at);
    drawTitleButton(button, look, icon, isPressed);
}

void drawShadeBar(Painter bar, const Look& look, bool isSelected)
{
    drawBareBar(bar, look, isSelected, Window::shaded);
    drawText(bar, {7, 5}, "EQUALIZER", isSelected ? look.titleInkSelected : look.titleInk);
    for (const auto& slider : {Sliders::eqShadeVolume, Sliders::eqShadeBalance})
        bar.box({slider.origin.x, slider.origin.y, slider.size.width, slider.thumbSize.height},
                look.groove);
    drawTitleButton(bar.part(Layout::shadeButton), look, Icon::unshade, false);
    drawTitleButton(bar.part(Layout::closeButton), look, Icon::close, false);
}

void drawShadedEqualizer(Sheets& sheets, const Look& look)
{
    drawShadeBar(sheets.sprite("EQ_SHADE_BACKGROUND"), look, false);
    drawShadeBar(sheets.sprite("EQ_SHADE_BACKGROUND_SELECTED"), look, true);
    for (const auto thumb : {"EQ_SHADE_VOLUME_SLIDER_LEFT", "EQ_SHADE_VOLUME_SLIDER_CENTER",
                             "EQ_SHADE_VOLUME_SLIDER_RIGHT", "EQ_SHADE_BALANCE_SLIDER_LEFT",
                             "EQ_SHADE_BALANCE_SLIDER_CENTER", "EQ_SHADE_BALANCE_SLIDER_RIGHT"})
        drawThumb(sheets.sprite(thumb), look, Grip::small, false);
    // Named by the form that they stand in, not by the one that a click leads to.
    drawButtonOnBar(sheets.sprite("EQ_MAXIMIZE_BUTTON_ACTIVE"), look, Icon::shade,
                    Layout::shadeButton.origin(), true);
    drawButtonOnBar(sheets.sprite("EQ_MINIMIZE_BUTTON_ACTIVE"), look, Icon::unshade,
                    Layout::shadeButton.origin(), true);
    drawButtonOnBar(sheets.sprite("EQ_SHADE_CLOSE_BUTTON"), look, Icon::close,
                    Layout::closeButton.origin(), false);
    drawButtonOnBar(sheets.sprite("EQ_SHADE_CLOSE_BUTTON_ACTIVE"), look, Icon::close,
                    Layout::closeButton.origin(), true);
}

}

void drawEqualizerSheets(Sheets& sheets, const Look& look)
{
    const Image window = equalizerWindow(look);
    sheets.sprite("EQ_WINDOW_BACKGROUND").put(window, {0, 0});
    drawEqualizerTitle(sheets.sprite("EQ_TITLE_BAR"), look, false);
    drawEqualizerTitle(sheets.sprite("EQ_TITLE_BAR_SELECTED"), look, true);
    drawButtonOnBar(sheets.sprite("EQ_CLOSE_BUTTON"), look, Icon::close,
                    Layout::closeButton.origin(), false);
    drawButtonOnBar(sheets.sprite("EQ_CLOSE_BUTTON_ACTIVE"), look, Icon::close,
                    Layout::closeButton.origin(), true);
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
