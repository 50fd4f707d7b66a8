#pragma once

#include "SkinKit/Windows/Main/MainWindowState.h"
#include "SkinKit/Windows/WindowRenderer.h"

#include <optional>

namespace SkinKit {

class VisLayout;

// The main window: 275 × 116 pixels, shaded 275 × 14 with the focus, the clock, the position and
// the visualizer only. Its sections of the region are "normal" and, shaded, "windowshade".
struct MainWindow {
    using State = MainWindowState;

    static Size size(const State& state);
    static const SkinRegion::Polygons* outline(const SkinRegion& region, const State& state);
    static void paint(const SpriteDrawer& drawer, const State& state, int scale, Clip clip);
};

extern template struct WindowRenderer<MainWindow>;

// Also draws the full window in two layers: what never changes while the window keeps its focus,
// and the rest over such an image (of the same scale), so that a player need not draw the first
// layer again and again. Not clipped.
struct MainWindowRenderer : WindowRenderer<MainWindow> {
    static Image renderBase(const Skin& skin, bool focused, int scale);
    static Image renderDynamic(const Image& base, const Skin& skin, const MainWindowState& state,
                               int scale);
};

// What a state's visualizer shows, in the skin's colours; nothing when it is off. See VisRenderer
// for the layout and `pushDown`.
std::optional<Image> visualizerImage(const Skin& skin,
                                     const MainWindowState::Visualizer& visualizer,
                                     VisLayout layout, int pushDown);

// The clock of the shaded window, 30 × 6 pixels, with a gap for the colon of the skin's own
// background. Nothing without a text sheet.
std::optional<Image> miniTimeImage(const Skin& skin, const MiniTime::Characters& characters);

}
