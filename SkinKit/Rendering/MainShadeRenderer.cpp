#include "SkinKit/Rendering/MainShadeRenderer.h"

#include "SkinKit/Display/MiniTime.h"
#include "SkinKit/Layout/MainShadeLayout.h"
#include "SkinKit/Layout/MainSliders.h"
#include "SkinKit/Platform/Check.h"
#include "SkinKit/Rendering/VisualizerImage.h"
#include "SkinKit/Text/TextRenderer.h"

#include <limits>
#include <string_view>
#include <utility>

namespace SkinKit::MainShadeRenderer {
namespace {

namespace Layout = MainShadeLayout;

// In the order of the layout's rectangles. The shade button is the one that unrolls the window.
constexpr std::array<std::string_view, 4> titleButtons{
    "MAIN_OPTIONS_BUTTON", "MAIN_MINIMIZE_BUTTON", "MAIN_SHADE_BUTTON_SELECTED",
    "MAIN_CLOSE_BUTTON"};
static_assert(titleButtons.size() == Layout::buttonRects.size());

void drawBase(const SpriteDrawer& drawer, bool focused)
{
    drawer.draw(focused ? "MAIN_SHADE_BACKGROUND_SELECTED" : "MAIN_SHADE_BACKGROUND", {0, 0});
    for (std::size_t i = 0; i < titleButtons.size(); ++i)
        drawer.draw(titleButtons[i], Layout::buttonRects[i].origin());
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

Image render(const Skin& skin, const MainWindowState& state, int scale, Clip clip)
{
    Canvas canvas = WindowDrawing::makeCanvas(Layout::size, scale);
    draw(canvas, {0, 0}, skin, state, scale, clip);
    return std::move(canvas).image();
}

void draw(Canvas& canvas, Point at, const Skin& skin, const MainWindowState& state, int scale,
          Clip clip)
{
    const WindowDrawing::Placement placement(canvas, at, scale, skin.region.windowShade(), clip);
    const SpriteDrawer drawer{canvas, skin};
    drawBase(drawer, state.focused);
    drawVisualizer(drawer, state.visualizer, scale);
    drawer.draw(miniTimeImage(skin, MiniTime::characters(state.status)), Layout::miniTimeOrigin);
    drawPosition(drawer, state.position);
}

}
