#pragma once

#include "SkinKit/Text/TimeDigits.h"
#include "SkinKit/Windows/Main/MainWindowLayout.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace SkinKit {

// What the player is doing.
enum class Transport { stopped, loading, playing, paused };

// What is known of the player and its stream at one instant. The initial values are those of a
// player that has just started.
struct MainWindowStatus {
    Transport transport = Transport::stopped;
    TimeMode timeMode = TimeMode::elapsed;
    double elapsed = 0;               // seconds into the track
    double duration = 0;              // seconds
    std::optional<int> bitrateKbps;   // kilobits a second
    std::optional<double> sampleRate; // hertz
    std::optional<int> channels;

    bool operator==(const MainWindowStatus&) const = default;

    // The sprite of the play, pause or stop sign; none while loading.
    std::optional<std::string_view> indicator() const;
    // The sprite of the small work light next to it; only while loading or playing.
    std::optional<std::string_view> workIndicator() const;
    // The clock; blank when stopped.
    TimeDigits digits() const;
};

// Everything that shows on the main window at one instant, apart from the skin itself. The initial
// values are those of a player that has just started.
struct MainWindowState {
    // Bars, one a column of VisLayout; columns without a value are empty. Heights count the rows of
    // VisLayout::main, or of VisLayout::shade on the shaded window.
    struct Spectrum {
        std::vector<int> heights; // of each column's bar
        std::vector<int> peaks;   // of each column's peak mark

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
    bool shaded = false;
    // The title button that is held down. It shows on the shaded window only; the full window shows
    // all its buttons released.
    std::optional<MainWindowLayout::TitleButton> pressed;

    bool operator==(const MainWindowState&) const = default;

    // A player that has just started.
    static MainWindowState idle();
    // The player of the reference screenshots: three seconds into a track, all four toggles lit.
    static MainWindowState webampScreenshot();
};

}

// The stream's bit rate and sample rate, in as many characters as the window has room for.
namespace SkinKit::MediaInfoText {

// Three characters: 64 is " 64", 1411 is "14H" (hundreds), 12345 is " 1C" (the first digit of ten
// thousands). Unknown is "  0"; a negative rate counts as 0.
std::string kbps(std::optional<int> bitrateKbps);

// Two characters, in kilohertz: 44100 is "44". From 100 kHz up the first digit is dropped (192000
// is "92"), up to 10 kHz only the first is kept (10000 is " 1"). Unknown is " 0".
std::string khz(std::optional<double> sampleRate);

}

// The clock of the shaded window: a sign and four digits, a character each.
namespace SkinKit::MiniTime {

// The sign, then minutes and seconds, two digits each; a space where nothing shows.
using Characters = std::array<std::string, 5>;

Characters blank();

// A "-" in front counts down; blank when stopped.
Characters characters(const MainWindowStatus& status);

}
