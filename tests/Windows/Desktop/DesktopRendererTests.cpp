#include "SkinKit/Windows/Desktop/DesktopRenderer.h"

#include "tests/support/Collage.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace SkinKit;
using support::Collage;
using support::expectSame;
using support::noisySkin;

TEST(DesktopState, ShowsTheSameTrackInAllWindows)
{
    EXPECT_EQ(DesktopState::idle(), DesktopState{});
    const auto playing = DesktopState::webampScreenshot();
    EXPECT_EQ(playing.main, MainWindowState::webampScreenshot());
    EXPECT_EQ(playing.main.status, playing.playlist.status);
    const auto& track = playing.playlist.entries.at(playing.playlist.current.value());
    EXPECT_TRUE(playing.main.marqueeText.contains(track.name));
    EXPECT_EQ(playing.main.status.duration, track.duration);
    EXPECT_EQ(playing.playlist.entries.size(), 12U); // all of which fit into the list
    EXPECT_GE(PlaylistLayout::visibleRows(playing.playlist.steps), 12);
}

TEST(DesktopRenderer, StacksTheThreeWindowsWithoutGaps)
{
    Skin skin = noisySkin();
    skin.region.sections["normal"] = {
        {{5, 0}, {275, 0}, {275, 116}, {5, 116}}
    };
    auto state = DesktopState::webampScreenshot();
    state.playlist.steps = {2, 1};
    for (const bool shaded : {false, true})
        for (const auto clip : {Clip::none, Clip::toRegion})
            for (const int scale : {1, 3}) {
                state.main.shaded = state.equalizer.shaded = shaded;
                const int height = (shaded ? 14 : 116) * scale;
                Collage expected(skin, {325 * scale, 2 * height + 145 * scale});
                expected.add(MainWindowRenderer::render(skin, state.main, scale, clip), {0, 0});
                expected.add(EQWindowRenderer::render(skin, state.equalizer, scale, clip),
                             {0, height});
                expected.add(PlaylistWindowRenderer::render(skin, state.playlist, scale, clip),
                             {0, 2 * height});
                expectSame(DesktopRenderer::render(skin, state, scale, clip),
                           std::move(expected).image());
            }
}
