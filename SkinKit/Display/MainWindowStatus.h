#pragma once

#include "SkinKit/Display/TimeDigits.h"

#include <optional>
#include <string_view>

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
    // The sprite of the small work light beside it; only while loading or playing.
    std::optional<std::string_view> workIndicator() const;
    // The clock; blank when stopped.
    TimeDigits digits() const;
};

}
