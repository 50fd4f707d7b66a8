#include "SkinKit/Windows/Equalizer/EQWindowRenderer.h"

#include "SkinKit/Windows/Equalizer/EQGraph.h"
#include "SkinKit/Windows/Equalizer/EQLayout.h"
#include "SkinKit/Windows/Main/MainSliders.h"
#include "SkinKit/Windows/WindowDrawing.h"

#include <string_view>

namespace SkinKit {
namespace {

using Control = EQWindowState::Control;
using Part = EQWindowState::Part;
using MainSliders::ToggleSprites;

// clang-format off
constexpr ToggleSprites onSprites{
    "EQ_ON_BUTTON",             "EQ_ON_BUTTON_SELECTED",
    "EQ_ON_BUTTON_DEPRESSED",   "EQ_ON_BUTTON_SELECTED_DEPRESSED"};
constexpr ToggleSprites autoSprites{
    "EQ_AUTO_BUTTON",           "EQ_AUTO_BUTTON_SELECTED",
    "EQ_AUTO_BUTTON_DEPRESSED", "EQ_AUTO_BUTTON_SELECTED_DEPRESSED"};
// clang-format on

bool isPressed(const EQWindowState& state, Part part)
{
    return state.pressed == part;
}

// The title bar shows its buttons itself while they are not pressed.
void drawPressedTitleButtons(const SpriteDrawer& drawer, const EQWindowState& state,
                             std::string_view shadeName, std::string_view closeName)
{
    if (isPressed(state, Control::shade))
        drawer.draw(shadeName, EQLayout::shadeButton.origin());
    if (isPressed(state, Control::close))
        drawer.draw(closeName, EQLayout::closeButton.origin());
}

void drawButtons(const SpriteDrawer& drawer, const EQWindowState& state)
{
    drawer.draw(onSprites.name({state.on, isPressed(state, Control::on)}),
                EQLayout::onButton.origin());
    drawer.draw(autoSprites.name({state.automatic, isPressed(state, Control::automatic)}),
                EQLayout::autoButton.origin());
    drawer.draw(isPressed(state, Control::presets) ? "EQ_PRESETS_BUTTON_SELECTED"
                                                   : "EQ_PRESETS_BUTTON",
                EQLayout::presetsButton.origin());
}

void drawSlider(const SpriteDrawer& drawer, Point origin, double value, bool pressed)
{
    const BandFrame frame{EQLayout::frameForValue(value)};
    drawer.draw(drawer.skin.image("EQ_SLIDER_BACKGROUND", frame), origin);
    drawer.draw(pressed ? "EQ_SLIDER_THUMB_SELECTED" : "EQ_SLIDER_THUMB",
                {origin.x + EQLayout::thumbInsetX, origin.y + EQLayout::thumbYForValue(value)});
}

void drawWindow(const SpriteDrawer& drawer, const EQWindowState& state)
{
    drawer.draw("EQ_WINDOW_BACKGROUND", {0, 0});
    drawer.draw(state.focused ? "EQ_TITLE_BAR_SELECTED" : "EQ_TITLE_BAR", {0, 0});
    drawPressedTitleButtons(drawer, state, "EQ_MAXIMIZE_BUTTON_ACTIVE", "EQ_CLOSE_BUTTON_ACTIVE");
    drawButtons(drawer, state);
    drawer.draw(EQGraph::render(drawer.skin, state.bands, state.preamp), EQLayout::graph.origin());
    drawSlider(drawer, EQLayout::preampOrigin, state.preamp, isPressed(state, Control::preamp));
    for (int i = 0; i < EQLayout::bandCount; ++i)
        drawSlider(drawer, EQLayout::bandOrigin(i), state.bands[static_cast<std::size_t>(i)],
                   isPressed(state, EQWindowState::Band{i}));
}

struct ShadeThumbs {
    std::string_view left, center, right;
};

void drawShadeThumb(const SpriteDrawer& drawer, const MainSliders::Slider& slider, double fraction,
                    const ShadeThumbs& thumbs)
{
    const auto name = [&] {
        switch (MainSliders::shadeSegment(fraction)) {
        case MainSliders::ShadeSegment::left: return thumbs.left;
        case MainSliders::ShadeSegment::center: return thumbs.center;
        case MainSliders::ShadeSegment::right: break;
        }
        return thumbs.right;
    }();
    drawer.draw(name, {slider.thumbX(fraction), slider.thumbY()});
}

void drawShaded(const SpriteDrawer& drawer, const EQWindowState& state)
{
    drawer.draw(state.focused ? "EQ_SHADE_BACKGROUND_SELECTED" : "EQ_SHADE_BACKGROUND", {0, 0});
    drawPressedTitleButtons(drawer, state, "EQ_MINIMIZE_BUTTON_ACTIVE",
                            "EQ_SHADE_CLOSE_BUTTON_ACTIVE");
    drawShadeThumb(drawer, MainSliders::eqShadeVolume, state.volume,
                   {"EQ_SHADE_VOLUME_SLIDER_LEFT", "EQ_SHADE_VOLUME_SLIDER_CENTER",
                    "EQ_SHADE_VOLUME_SLIDER_RIGHT"});
    drawShadeThumb(drawer, MainSliders::eqShadeBalance,
                   MainSliders::fractionForBalance(state.balance),
                   {"EQ_SHADE_BALANCE_SLIDER_LEFT", "EQ_SHADE_BALANCE_SLIDER_CENTER",
                    "EQ_SHADE_BALANCE_SLIDER_RIGHT"});
}

}

Size EQWindow::size(const State& state)
{
    return state.shaded ? EQLayout::shadeSize : EQLayout::windowSize;
}

const SkinRegion::Polygons* EQWindow::outline(const SkinRegion& region, const State& state)
{
    return state.shaded ? region.equalizerShade() : region.equalizer();
}

void EQWindow::paint(const SpriteDrawer& drawer, const State& state, int, Clip)
{
    if (state.shaded)
        drawShaded(drawer, state);
    else
        drawWindow(drawer, state);
}

template struct WindowRenderer<EQWindow>;

}
