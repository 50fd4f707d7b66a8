#pragma once

#include "SkinKit/Windows/Main/MainWindowState.h"
#include "SkinKit/Windows/Playlist/PlaylistLayout.h"
#include "SkinKit/Windows/WindowRenderer.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace SkinKit {

// Everything that shows on the playlist window at one instant, apart from the skin itself. The
// initial values are those of an empty list in the smallest window.
struct PlaylistWindowState {
    // One track of the list.
    struct Entry {
        std::string name;
        std::optional<double> duration; // seconds
        bool isSelected = false;

        bool operator==(const Entry&) const = default;
    };

    std::vector<Entry> entries;
    std::optional<std::size_t> current; // the entry that plays
    PlaylistLayout::Steps steps;
    double scrollPosition = 0; // 0 … 100
    MainWindowStatus status;   // for the small time display
    bool focused = true;
    std::optional<PlaylistLayout::Menu> openMenu; // never on the shaded window
    bool shaded = false;

    bool operator==(const PlaylistWindowState&) const = default;
};

// The playlist window in any of its sizes, shaded a strip that shows the current entry. The list's
// own letters are the same with every skin. Skins have no outline for a window that changes its
// size, so it is never clipped.
struct PlaylistWindow {
    using State = PlaylistWindowState;

    static Size size(const State& state);
    static const SkinRegion::Polygons* outline(const SkinRegion& region, const State& state);
    static void paint(const SpriteDrawer& drawer, const State& state, int scale, Clip clip);
};

extern template struct WindowRenderer<PlaylistWindow>;
using PlaylistWindowRenderer = WindowRenderer<PlaylistWindow>;

}
