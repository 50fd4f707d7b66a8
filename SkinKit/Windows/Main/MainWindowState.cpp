#include "SkinKit/Windows/Main/MainWindowState.h"

#include "SkinKit/Base/Numbers.h"

#include <algorithm>
#include <cmath>

namespace SkinKit {

std::optional<std::string_view> MainWindowStatus::indicator() const
{
    switch (transport) {
    case Transport::stopped: return "MAIN_STOPPED_INDICATOR";
    case Transport::playing: return "MAIN_PLAYING_INDICATOR";
    case Transport::paused: return "MAIN_PAUSED_INDICATOR";
    case Transport::loading: break;
    }
    return std::nullopt;
}

std::optional<std::string_view> MainWindowStatus::workIndicator() const
{
    switch (transport) {
    case Transport::loading: return "MAIN_WORKING_INDICATOR";
    case Transport::playing: return "MAIN_NOT_WORKING_INDICATOR";
    case Transport::stopped:
    case Transport::paused: break;
    }
    return std::nullopt;
}

TimeDigits MainWindowStatus::digits() const
{
    if (transport == Transport::stopped)
        return {};
    return TimeDigits::shown(timeMode, elapsed, duration);
}

MainWindowState MainWindowState::idle()
{
    return {};
}

MainWindowState MainWindowState::webampScreenshot()
{
    return {
        .status = {.transport = Transport::playing,
                   .timeMode = TimeMode::elapsed,
                   .elapsed = 3,
                   .duration = 5,
                   .bitrateKbps = 128,
                   .sampleRate = 44100,
                   .channels = 2},
        .marqueeText = "1. DJ Nico Parda - Parda Rattling Intro (0:05)",
        .position = 0.6,
        .shuffle = true,
        .repeatOn = true,
        .eqOpen = true,
        .playlistOpen = true,
        .visualizer = Spectrum{},
    };
}

}

namespace SkinKit::MediaInfoText {

std::string kbps(std::optional<int> bitrateKbps)
{
    constexpr std::size_t width = 3;
    const int rate = std::max(0, bitrateKbps.value_or(0));
    const std::string digits = std::to_string(rate);
    if (rate >= 10'000)
        return Numbers::padded(digits.substr(0, 1) + "C", width);
    if (rate >= 1000)
        return digits.substr(0, 2) + "H";
    return Numbers::padded(digits, width);
}

std::string khz(std::optional<double> sampleRate)
{
    constexpr std::size_t width = 2;
    constexpr double most = 1e18; // beyond any rate there is, and an integer holds it
    if (!sampleRate || !std::isfinite(*sampleRate))
        return " 0";
    const double rounded = std::round(*sampleRate / 1000);
    const long long rate = std::llround(std::clamp(rounded, 0.0, most));
    std::string digits = std::to_string(rate);
    if (rate >= 100)
        return digits.substr(1, width);
    if (rate <= 10)
        return Numbers::padded(digits.substr(0, 1), width);
    return digits;
}

}

namespace SkinKit::MiniTime {

Characters blank()
{
    return {" ", " ", " ", " ", " "};
}

Characters characters(const MainWindowStatus& status)
{
    if (status.transport == Transport::stopped)
        return blank();
    const auto text = [](std::optional<int> digit) { return digit ? std::to_string(*digit) : " "; };
    const auto digits = status.digits();
    return {status.timeMode == TimeMode::remaining ? "-" : " ", text(digits.minutesTens),
            text(digits.minutesOnes), text(digits.secondsTens), text(digits.secondsOnes)};
}

}
