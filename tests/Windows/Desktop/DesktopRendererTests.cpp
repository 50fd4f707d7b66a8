#include "SkinKit/Windows/Desktop/DesktopRenderer.h"

#include "SkinKit/Windows/Equalizer/EQWindowRenderer.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowRenderer.h"
#include "tests/support/Collage.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <climits>

using namespace SkinKit;
using DesktopRenderer::Clip;
using support::Collage;
using support::expectSame;
using support::noisySkin;

TEST(DesktopState, TellsOfTheSameTrackInAllWindows)
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

TEST(DesktopRenderer, StacksTheThreeWindows)
{
    Skin skin = noisySkin();
    skin.region.sections["normal"] = {
        {{5, 0}, {275, 0}, {275, 116}, {5, 116}}
    };
    auto state = DesktopState::webampScreenshot();
    state.playlist.steps = {2, 1};
    for (const auto clip : {Clip::none, Clip::toRegion})
        for (const int scale : {0, 1, 3}) {
            const int factor = std::max(scale, 1);
            const Image drawn = DesktopRenderer::render(skin, state, scale, clip);
            Collage expected(skin, {325 * factor, (116 + 116 + 145) * factor});
            expected.add(MainWindowRenderer::render(skin, state.main, scale, clip), {0, 0});
            expected.add(EQWindowRenderer::render(skin, state.equalizer, scale, clip),
                         {0, 116 * factor});
            expected.add(PlaylistWindowRenderer::render(skin, state.playlist, scale),
                         {0, 232 * factor});
            expectSame(drawn, std::move(expected).image());
            EXPECT_EQ(DesktopRenderer::size(state, scale), drawn.size());
        }
}

TEST(DesktopRenderer, ClosesTheGapBelowAShadedEqualizer)
{
    const Skin skin = noisySkin();
    DesktopState state;
    state.equalizer.shaded = true;
    const Image drawn = DesktopRenderer::render(skin, state, 1, Clip::none);
    EXPECT_EQ(drawn.size(), (Size{275, 116 + 14 + 116}));
    EXPECT_EQ(drawn.crop({0, 130, 275, 116}),
              PlaylistWindowRenderer::render(skin, state.playlist, 1));
}

TEST(DesktopRenderer, HasNoSizeBeyondAnyRaster)
{
    DesktopState state;
    EXPECT_EQ(DesktopRenderer::size(state, 2), (Size{550, 696}));
    EXPECT_EQ(DesktopRenderer::size(state, INT64_MAX), std::nullopt);
    state.playlist.steps = {INT_MAX, INT_MAX};
    EXPECT_EQ(DesktopRenderer::size(state, 1), std::nullopt);
}
