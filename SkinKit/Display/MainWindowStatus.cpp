#include "SkinKit/Display/MainWindowStatus.h"

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

}
