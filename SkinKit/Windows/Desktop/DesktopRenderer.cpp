#include "SkinKit/Windows/Desktop/DesktopRenderer.h"

#include "SkinKit/Windows/Equalizer/EQLayout.h"
#include "SkinKit/Windows/Equalizer/EQWindowRenderer.h"
#include "SkinKit/Windows/Main/MainWindowLayout.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowRenderer.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace SkinKit::DesktopRenderer {
namespace {

// In window pixels.
Size equalizerSize(const DesktopState& state)
{
    return state.equalizer.shaded ? EQLayout::shadeSize : EQLayout::windowSize;
}

// Held to the largest number where a playlist is as tall as numbers go; no raster is that tall.
Size windowSize(const DesktopState& state)
{
    const Size equalizer = equalizerSize(state);
    const Size playlist = PlaylistLayout::size(state.playlist.steps);
    const std::int64_t height =
        std::int64_t{MainWindowLayout::size.height} + equalizer.height + playlist.height;
    return {std::max({MainWindowLayout::size.width, equalizer.width, playlist.width}),
            static_cast<int>(std::min<std::int64_t>(height, std::numeric_limits<int>::max()))};
}

}

std::optional<Size> size(const DesktopState& state, std::int64_t scale)
{
    return WindowDrawing::size(windowSize(state), scale);
}

Image render(const Skin& skin, const DesktopState& state, int scale, Clip clip)
{
    Canvas canvas = WindowDrawing::makeCanvas(windowSize(state), scale);
    const int factor = WindowDrawing::effectiveScale(scale);
    Point at{0, 0};
    MainWindowRenderer::draw(canvas, at, skin, state.main, scale, clip);
    at.y += MainWindowLayout::size.height * factor;
    EQWindowRenderer::draw(canvas, at, skin, state.equalizer, scale, clip);
    at.y += equalizerSize(state).height * factor;
    PlaylistWindowRenderer::draw(canvas, at, skin, state.playlist, scale);
    return std::move(canvas).image();
}

}
