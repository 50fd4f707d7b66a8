#include "SkinKit/Windows/Main/MainWindowRenderer.h"

#include "SkinKit/Text/MarqueeLayout.h"
#include "SkinKit/Text/TextRenderer.h"
#include "SkinKit/Windows/Main/MainSliders.h"
#include "SkinKit/Windows/Main/MainWindowLayout.h"
#include "SkinKit/Windows/Main/VisualizerImage.h"

#include <utility>

namespace SkinKit::MainWindowRenderer {
namespace {

namespace Layout = MainWindowLayout;
using MainSliders::Toggle;
using WindowDrawing::effectiveScale;
using WindowDrawing::makeCanvas;

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

}

std::optional<Size> size(std::int64_t scale)
{
    return WindowDrawing::size(Layout::size, scale);
}

Image render(const Skin& skin, const MainWindowState& state, int scale, Clip clip)
{
    Canvas canvas = makeCanvas(Layout::size, scale);
    draw(canvas, {0, 0}, skin, state, scale, clip);
    return std::move(canvas).image();
}

Image renderBase(const Skin& skin, bool focused, int scale)
{
    Canvas canvas = makeCanvas(Layout::size, scale);
    canvas.scale(effectiveScale(scale));
    drawBase({canvas, skin}, focused);
    return std::move(canvas).image();
}

Image renderDynamic(const Image& base, const Skin& skin, const MainWindowState& state, int scale)
{
    Canvas canvas = makeCanvas(Layout::size, scale);
    canvas.draw(base, Point{0, 0});
    canvas.scale(effectiveScale(scale));
    drawDynamic({canvas, skin}, state, effectiveScale(scale));
    return std::move(canvas).image();
}

void draw(Canvas& canvas, Point at, const Skin& skin, const MainWindowState& state, int scale,
          Clip clip)
{
    const WindowDrawing::Placement placement(canvas, at, Layout::size, scale, skin.region.normal(),
                                             clip);
    const SpriteDrawer drawer{canvas, skin};
    drawBase(drawer, state.focused);
    drawDynamic(drawer, state, effectiveScale(scale));
}

}
