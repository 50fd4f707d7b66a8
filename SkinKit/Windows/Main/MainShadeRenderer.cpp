#include "SkinKit/Windows/Main/MainShadeRenderer.h"

#include "SkinKit/Base/Check.h"
#include "SkinKit/Text/TextRenderer.h"
#include "SkinKit/Windows/Main/MainShadeLayout.h"
#include "SkinKit/Windows/Main/MainSliders.h"
#include "SkinKit/Windows/Main/MiniTime.h"
#include "SkinKit/Windows/Main/VisualizerImage.h"

#include <limits>
#include <string_view>
#include <utility>

namespace SkinKit::MainShadeRenderer {
namespace {

namespace Layout = MainShadeLayout;

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

void drawTitleBar(const SpriteDrawer& drawer, bool focused, std::optional<TitleButton> pressed)
{
    drawer.draw(focused ? "MAIN_SHADE_BACKGROUND_SELECTED" : "MAIN_SHADE_BACKGROUND", {0, 0});
    if (pressed)
        drawer.draw(pressedSpriteName(*pressed),
                    Layout::buttonRects[static_cast<std::size_t>(*pressed)].origin());
}

// The layout's columns take the left half of the frame. The right half lies under the clock, and
// the background that the larger picture has there would hide the colon, so it is cut off.
constexpr Rect visualizer{Layout::visualizerFrame.x, Layout::visualizerFrame.y,
                          Layout::visualizerFrame.width / 2, Layout::visualizerFrame.height};
static_assert(visualizer.right() <= Layout::miniTimeOrigin.x);

// Above scale 1 the picture has two pixels a window pixel, so it is fitted into the device pixels
// of its frame instead of being replicated.
void drawVisualizer(const SpriteDrawer& drawer, const MainWindowState::Visualizer& shown, int scale)
{
    const auto image = visualizerImage(drawer.skin, shown, VisLayout::shade(scale), 0);
    if (!image)
        return;
    constexpr Rect frame = Layout::visualizerFrame;
    Canvas& canvas = drawer.context;
    const SavedCanvasState saved(canvas);
    canvas.clip(visualizer);
    canvas.translate(frame.origin());
    auto device = canvas.state();
    const int pixels = std::exchange(device.scale, 1);
    check(pixels <= std::numeric_limits<int>::max() / frame.width, "a scale out of range");
    canvas.setState(std::move(device));
    canvas.draw(*image, Rect{0, 0, frame.width * pixels, frame.height * pixels});
}

void drawPosition(const SpriteDrawer& drawer, std::optional<double> position)
{
    const auto& slider = MainSliders::shadePosition;
    drawer.draw("MAIN_SHADE_POSITION_BACKGROUND", slider.origin);
    if (position)
        drawer.draw(MainSliders::shadePositionThumbName(*position),
                    {slider.thumbX(*position), slider.thumbY()});
}

}

std::optional<Size> size(std::int64_t scale)
{
    return WindowDrawing::size(Layout::size, scale);
}

Image render(const Skin& skin, const MainWindowState& state, int scale, Clip clip,
             std::optional<TitleButton> pressed)
{
    Canvas canvas = WindowDrawing::makeCanvas(Layout::size, scale);
    draw(canvas, {0, 0}, skin, state, scale, clip, pressed);
    return std::move(canvas).image();
}

void draw(Canvas& canvas, Point at, const Skin& skin, const MainWindowState& state, int scale,
          Clip clip, std::optional<TitleButton> pressed)
{
    const WindowDrawing::Placement placement(canvas, at, Layout::size, scale,
                                             skin.region.windowShade(), clip);
    const SpriteDrawer drawer{canvas, skin};
    drawTitleBar(drawer, state.focused, pressed);
    drawVisualizer(drawer, state.visualizer, scale);
    drawer.draw(miniTimeImage(skin, MiniTime::characters(state.status)), Layout::miniTimeOrigin);
    drawPosition(drawer, state.position);
}

}
