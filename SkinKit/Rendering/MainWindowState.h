#pragma once

#include "SkinKit/Display/MainWindowStatus.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace SkinKit {

// Everything that shows on the main window at one instant, apart from the skin itself. The initial
// values are those of a player that has just started.
struct MainWindowState {
    // Bars, one a column of VisLayout; columns without a value are empty.
    struct Spectrum {
        std::vector<int> heights; // of each column's bar, in pixels
        std::vector<int> peaks;   // of each column's peak mark, in pixels

        bool operator==(const Spectrum&) const = default;
    };
    // A line through one sample a column.
    struct Oscilloscope {
        std::vector<float> samples; // one a column, -0.5 … 0.5 filling the height

        bool operator==(const Oscilloscope&) const = default;
    };
    // Nothing but the background of the window.
    struct Off {
        bool operator==(const Off&) const = default;
    };
    using Visualizer = std::variant<Spectrum, Oscilloscope, Off>;

    MainWindowStatus status;
    bool focused = true;
    std::string marqueeText = "Velmar";
    int marqueeStep = 0;            // whole cells scrolled
    int marqueePixels = 0;          // and pixels more
    float volume = 0.78F;           // 0 … 1
    float balance = 0;              // -1 … 1, 0 in the centre
    std::optional<double> position; // 0 … 1; none hides the seek bar's thumb
    bool shuffle = false;
    bool repeatOn = false;
    bool eqOpen = false;
    bool playlistOpen = false;
    Visualizer visualizer = Off{};

    bool operator==(const MainWindowState&) const = default;

    // A player that has just started.
    static MainWindowState idle();
    // The player of the reference screenshots: three seconds into a track, all four toggles lit.
    static MainWindowState webampScreenshot();
};

}
