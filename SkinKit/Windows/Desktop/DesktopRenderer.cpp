#include "SkinKit/Windows/Desktop/DesktopRenderer.h"

#include "SkinKit/Windows/WindowDrawing.h"

#include <algorithm>
#include <limits>

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

// Paints a window below what is there, and returns where the next one starts.
template <WindowKind Window>
int paintBelow(int top, const SpriteDrawer& drawer, const typename Window::State& state, int scale,
               Clip clip)
{
    WindowDrawing::paint<Window>(drawer, {0, top}, state, scale, clip);
    return top + Window::size(state).height;
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

// Held to the largest number where a playlist is as tall as numbers go; no raster is that tall.
Size Desktop::size(const State& state)
{
    const Size main = MainWindow::size(state.main);
    const Size equalizer = EQWindow::size(state.equalizer);
    const Size playlist = PlaylistWindow::size(state.playlist);
    const std::int64_t height = std::int64_t{main.height} + equalizer.height + playlist.height;
    return {std::max({main.width, equalizer.width, playlist.width}),
            static_cast<int>(std::min<std::int64_t>(height, std::numeric_limits<int>::max()))};
}

const SkinRegion::Polygons* Desktop::outline(const SkinRegion&, const State&)
{
    return nullptr;
}

void Desktop::paint(const SpriteDrawer& drawer, const State& state, int scale, Clip clip)
{
    int top = paintBelow<MainWindow>(0, drawer, state.main, scale, clip);
    top = paintBelow<EQWindow>(top, drawer, state.equalizer, scale, clip);
    paintBelow<PlaylistWindow>(top, drawer, state.playlist, scale, clip);
}

template struct WindowRenderer<Desktop>;

}
