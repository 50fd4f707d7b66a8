#include "SkinKit/Windows/Main/MainWindowRenderer.h"

#include "SkinKit/Base/Check.h"
#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Text/TextFont.h"
#include "SkinKit/Windows/Main/MainSliders.h"
#include "SkinKit/Windows/Main/MainWindowLayout.h"
#include "SkinKit/Windows/VisRenderer.h"
#include "SkinKit/Windows/WindowDrawing.h"

#include <limits>
#include <string_view>
#include <utility>

namespace SkinKit {
namespace {

namespace Layout = MainWindowLayout;
namespace Shade = MainShadeLayout;
using Layout::TitleButton;
using MainSliders::Toggle;

constexpr RGBColor bareBackground{26, 26, 26}; // a tenth of white

void drawBase(const SpriteDrawer& drawer, bool focused)
{
    if (!drawer.draw("MAIN_WINDOW_BACKGROUND", {0, 0}))
        drawer.context.fill({0, 0, Layout::size.width, Layout::size.height}, bareBackground);
    drawer.draw(focused ? "MAIN_TITLE_BAR_SELECTED" : "MAIN_TITLE_BAR", Layout::titleBar.origin());
    drawer.draw("MAIN_CLUTTER_BAR_BACKGROUND", Layout::clutterBar.origin());
    for (const auto button : Layout::allTransports)
        drawer.drawClipped(Layout::spriteName(button, Layout::ButtonState::released),
                           Layout::rect(button));
}

void drawIndicators(const SpriteDrawer& drawer, const MainWindowStatus& status)
{
    if (const auto indicator = status.indicator())
        drawer.draw(*indicator, Layout::playIndicator);
    if (const auto work = status.workIndicator())
        drawer.drawClipped(*work, Layout::workIndicator);
}

void drawClock(const SpriteDrawer& drawer, const MainWindowStatus& status)
{
    if (status.transport == Transport::stopped)
        return;
    drawer.draw(status.timeMode == TimeMode::remaining ? DigitFont::minusName
                                                       : DigitFont::noMinusName,
                minusFrame(drawer.skin).origin());
    const auto shown = status.digits();
    const std::optional<int> digits[] = {shown.minutesTens, shown.minutesOnes, shown.secondsTens,
                                         shown.secondsOnes};
    for (std::size_t i = 0; i < std::size(digits); ++i)
        if (digits[i])
            drawer.draw(DigitFont::digitSpriteName(*digits[i]),
                        {Layout::digitXs[i], Layout::digitY});
}

void drawVisualizer(const SpriteDrawer& drawer, const MainWindowState::Visualizer& visualizer,
                    int scale)
{
    const int pushDown = scale == 1 ? 2 : 0;
    drawer.draw(visualizerImage(drawer.skin, visualizer, VisLayout::main(), pushDown),
                Layout::visualizer.origin());
}

void drawMarquee(const SpriteDrawer& drawer, const MainWindowState& state)
{
    const int offset =
        MarqueeLayout::stepOffset(state.marqueeText, state.marqueeStep, state.marqueePixels);
    const SavedCanvasState saved(drawer.context);
    drawer.context.clip(Layout::marquee);
    drawText(drawer.context, drawer.skin, MarqueeLayout::loopText(state.marqueeText),
             {Layout::marquee.x - offset, Layout::marquee.y});
}

void drawStreamInfo(const SpriteDrawer& drawer, const MainWindowStatus& status)
{
    const bool stopped = status.transport == Transport::stopped;
    if (!stopped) {
        drawText(drawer.context, drawer.skin, MediaInfoText::kbps(status.bitrateKbps),
                 Layout::kbps);
        drawText(drawer.context, drawer.skin, MediaInfoText::khz(status.sampleRate), Layout::khz);
    }
    const bool isMono = !stopped && status.channels == 1;
    const bool isStereo = !stopped && status.channels == 2;
    drawer.draw(isMono ? "MAIN_MONO_SELECTED" : "MAIN_MONO", Layout::mono);
    drawer.draw(isStereo ? "MAIN_STEREO_SELECTED" : "MAIN_STEREO", Layout::stereo);
}

void drawVolume(const SpriteDrawer& drawer, float volume)
{
    const auto& slider = MainSliders::volume;
    drawer.draw(
        drawer.skin.image("MAIN_VOLUME_BACKGROUND", Frame{MainSliders::volumeFrame(volume)}),
        slider.origin);
    drawer.draw("MAIN_VOLUME_THUMB", {slider.thumbX(volume), slider.thumbY()});
}

void drawBalance(const SpriteDrawer& drawer, float balance)
{
    const auto& slider = MainSliders::balance;
    drawer.draw(
        drawer.skin.image("MAIN_BALANCE_BACKGROUND", Frame{MainSliders::balanceFrame(balance)}),
        slider.origin);
    drawer.draw("MAIN_BALANCE_THUMB",
                {slider.thumbX(MainSliders::fractionForBalance(balance)), slider.thumbY()});
}

void drawSeekBar(const SpriteDrawer& drawer, std::optional<double> position)
{
    const auto& slider = MainSliders::position;
    drawer.draw("MAIN_POSITION_SLIDER_BACKGROUND", slider.origin);
    if (position)
        drawer.draw("MAIN_POSITION_SLIDER_THUMB", {slider.thumbX(*position), slider.thumbY()});
}

void drawToggle(const SpriteDrawer& drawer, Toggle toggle, bool selected)
{
    drawer.draw(MainSliders::spriteName(toggle, {.selected = selected}),
                MainSliders::frame(toggle).origin());
}

// The order is part of the picture: what is drawn later covers what overlaps it, as repeat does the
// last column of shuffle.
void drawDynamic(const SpriteDrawer& drawer, const MainWindowState& state, int scale)
{
    drawIndicators(drawer, state.status);
    drawClock(drawer, state.status);
    drawVisualizer(drawer, state.visualizer, scale);
    drawMarquee(drawer, state);
    drawStreamInfo(drawer, state.status);
    drawVolume(drawer, state.volume);
    drawBalance(drawer, state.balance);
    drawToggle(drawer, Toggle::equalizer, state.eqOpen);
    drawToggle(drawer, Toggle::playlist, state.playlistOpen);
    drawSeekBar(drawer, state.position);
    drawToggle(drawer, Toggle::shuffle, state.shuffle);
    drawToggle(drawer, Toggle::repeatAll, state.repeatOn);
}

// The shade button is the one that unrolls the window.
std::string_view pressedSpriteName(TitleButton button)
{
    switch (button) {
    case TitleButton::options: return "MAIN_OPTIONS_BUTTON_DEPRESSED";
    case TitleButton::minimize: return "MAIN_MINIMIZE_BUTTON_DEPRESSED";
    case TitleButton::shade: return "MAIN_SHADE_BUTTON_SELECTED_DEPRESSED";
    case TitleButton::close: break;
    }
    return "MAIN_CLOSE_BUTTON_DEPRESSED";
}

void drawShadeTitleBar(const SpriteDrawer& drawer, bool focused, std::optional<TitleButton> pressed)
{
    drawer.draw(focused ? "MAIN_SHADE_BACKGROUND_SELECTED" : "MAIN_SHADE_BACKGROUND", {0, 0});
    if (pressed)
        drawer.draw(pressedSpriteName(*pressed), Layout::rect(*pressed).origin());
}

// The layout's columns take the left half of the frame. The right half is under the clock, and
// the background that the larger picture has there would hide the colon, so it is cut off.
constexpr Rect shadeVisualizer{Shade::visualizerFrame.x, Shade::visualizerFrame.y,
                               Shade::visualizerFrame.width / 2, Shade::visualizerFrame.height};
static_assert(shadeVisualizer.right() <= Shade::miniTimeOrigin.x);

// Above scale 1 the picture has two pixels a window pixel, so it is fitted into the device pixels
// of its frame instead of being replicated.
void drawShadeVisualizer(const SpriteDrawer& drawer, const MainWindowState::Visualizer& shown,
                         int scale)
{
    const auto image = visualizerImage(drawer.skin, shown, VisLayout::shade(scale), 0);
    if (!image)
        return;
    constexpr Rect frame = Shade::visualizerFrame;
    Canvas& canvas = drawer.context;
    const SavedCanvasState saved(canvas);
    canvas.clip(shadeVisualizer);
    canvas.translate(frame.origin());
    auto device = canvas.state();
    const int pixels = std::exchange(device.scale, 1);
    check(pixels <= std::numeric_limits<int>::max() / frame.width, "a scale out of range");
    canvas.setState(std::move(device));
    canvas.draw(*image, Rect{0, 0, frame.width * pixels, frame.height * pixels});
}

void drawShadePosition(const SpriteDrawer& drawer, std::optional<double> position)
{
    const auto& slider = MainSliders::shadePosition;
    drawer.draw("MAIN_SHADE_POSITION_BACKGROUND", slider.origin);
    if (position)
        drawer.draw(MainSliders::shadePositionThumbName(*position),
                    {slider.thumbX(*position), slider.thumbY()});
}

void drawShaded(const SpriteDrawer& drawer, const MainWindowState& state, int scale)
{
    drawShadeTitleBar(drawer, state.focused, state.pressed);
    drawShadeVisualizer(drawer, state.visualizer, scale);
    drawer.draw(miniTimeImage(drawer.skin, MiniTime::characters(state.status)),
                Shade::miniTimeOrigin);
    drawShadePosition(drawer, state.position);
}

}

Size MainWindow::size(const State& state)
{
    return state.shaded ? Shade::size : Layout::size;
}

const SkinRegion::Polygons* MainWindow::outline(const SkinRegion& region, const State& state)
{
    return state.shaded ? region.windowShade() : region.normal();
}

void MainWindow::paint(const SpriteDrawer& drawer, const State& state, int scale, Clip)
{
    if (state.shaded) {
        drawShaded(drawer, state, scale);
    } else {
        drawBase(drawer, state.focused);
        drawDynamic(drawer, state, scale);
    }
}

template struct WindowRenderer<MainWindow>;

Image MainWindowRenderer::renderBase(const Skin& skin, bool focused, int scale)
{
    Canvas canvas = WindowDrawing::makeCanvas(Layout::size, scale);
    canvas.scale(WindowDrawing::effectiveScale(scale));
    drawBase({canvas, skin}, focused);
    return std::move(canvas).image();
}

Image MainWindowRenderer::renderDynamic(const Image& base, const Skin& skin,
                                        const MainWindowState& state, int scale)
{
    const int factor = WindowDrawing::effectiveScale(scale);
    Canvas canvas = WindowDrawing::makeCanvas(Layout::size, scale);
    canvas.draw(base, Point{0, 0});
    canvas.scale(factor);
    drawDynamic({canvas, skin}, state, factor);
    return std::move(canvas).image();
}

std::optional<Image> visualizerImage(const Skin& skin,
                                     const MainWindowState::Visualizer& visualizer,
                                     VisLayout layout, int pushDown)
{
    VisRenderer renderer(skin.visColors, layout);
    if (const auto* spectrum = std::get_if<MainWindowState::Spectrum>(&visualizer))
        renderer.drawBars(spectrum->heights, spectrum->peaks, pushDown);
    else if (const auto* trace = std::get_if<MainWindowState::Oscilloscope>(&visualizer))
        renderer.drawOscilloscope(trace->samples, pushDown);
    else
        return std::nullopt;
    return renderer.makeImage();
}

std::optional<Image> miniTimeImage(const Skin& skin, const MiniTime::Characters& characters)
{
    if (!skin.sheets.contains(TextFont::sheet))
        return std::nullopt;

    Canvas canvas({MainShadeLayout::miniTimeImageWidth, TextFont::cellHeight});
    for (std::size_t i = 0; i < characters.size(); ++i)
        drawText(canvas, skin, Unicode::firstGraphemes(characters[i], 1),
                 {MainShadeLayout::miniTimeCellX[i], 0});
    return std::move(canvas).image();
}

}
