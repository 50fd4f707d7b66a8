#include "SkinKit/Windows/Desktop/DesktopState.h"

namespace SkinKit {
namespace {

EQWindowState bassAndTreble(const MainWindowState& main)
{
    EQWindowState state;
    state.preamp = 58;
    state.bands = {88, 80, 68, 54, 44, 42, 50, 64, 78, 86};
    state.volume = main.volume;
    state.balance = main.balance;
    return state;
}

// Large enough to show the whole list.
PlaylistWindowState dozenTracks(const MainWindowState& main)
{
    return {
        .entries = {{"DJ Nico Parda - Parda Rattling Intro", 5.0},
                    {"Harbour Lights - Low Tide", 214.0},
                    {"The Paper Lanterns - Second Summer", 187.0, true},
                    {"Vera Quist - Ståltråd", 263.0},
                    {"Coral Arcade - Insert Coin", 142.0},
                    {"Tin Roof Choir - Rain, Mostly", 331.0},
                    {"Omar Delisle - Café Nocturne", 248.0},
                    {"Northbound 7 - A Song Whose Title Is Longer Than Its Row", 405.0},
                    {"Mossgrove - Evergreen (Live)", 612.0},
                    {"Halcyon Days Radio"},
                    {"Field Recording 12.mp3", 3725.0},
                    {"The Paper Lanterns - Goodnight", 96.0}},
        .current = 0,
        .steps = {0, 4},
        .status = main.status,
    };
}

}

DesktopState DesktopState::idle()
{
    return {};
}

DesktopState DesktopState::webampScreenshot()
{
    const auto main = MainWindowState::webampScreenshot();
    return {.main = main, .equalizer = bassAndTreble(main), .playlist = dozenTracks(main)};
}

}
