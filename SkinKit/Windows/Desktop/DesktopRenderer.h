#pragma once

#include "SkinKit/Windows/Equalizer/EQWindowRenderer.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowRenderer.h"

namespace SkinKit {

// What shows on all three windows of a player at one instant. The initial values are those of a
// player that has just started.
struct DesktopState {
    MainWindowState main;
    EQWindowState equalizer;
    PlaylistWindowState playlist;

    bool operator==(const DesktopState&) const = default;

    // A player that has just started, its list empty and its equalizer flat.
    static DesktopState idle();
    // The player of the reference screenshots, at the first of a dozen tracks and with more bass
    // and treble than the middle.
    static DesktopState webampScreenshot();
};

// The windows as people keep them on their desktop: the main window on top, below it the equalizer
// and the playlist, their left edges in line. Each is clipped to its own section of the region.
struct Desktop {
    using State = DesktopState;

    static Size size(const State& state);
    static const SkinRegion::Polygons* outline(const SkinRegion& region, const State& state);
    static void paint(const SpriteDrawer& drawer, const State& state, int scale, Clip clip);
};

extern template struct WindowRenderer<Desktop>;
using DesktopRenderer = WindowRenderer<Desktop>;

}
