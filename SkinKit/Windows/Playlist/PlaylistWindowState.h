#pragma once

#include "SkinKit/Windows/Main/MainWindowState.h"
#include "SkinKit/Windows/Playlist/PlaylistLayout.h"

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
    std::optional<PlaylistLayout::Menu> openMenu;

    bool operator==(const PlaylistWindowState&) const = default;
};

}
