#pragma once

#include "SkinKit/Windows/Equalizer/EQWindowState.h"
#include "SkinKit/Windows/Main/MainWindowState.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowState.h"

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

}
