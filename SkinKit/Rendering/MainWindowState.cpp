#include "SkinKit/Rendering/MainWindowState.h"

namespace SkinKit {

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
