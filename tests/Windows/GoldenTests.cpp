#include "SkinKit/SkinParser.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowRenderer.h"
#include "tests/support/Golden.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string_view>

using namespace SkinKit;

namespace {

// As much as can differ from the presets: counting down, paused, mono, scrolled, at the sliders'
// ends, and a spectrum of every height.
MainWindowState countingDown()
{
    auto state = MainWindowState::webampScreenshot();
    state.status.timeMode = TimeMode::remaining;
    state.status.transport = Transport::paused;
    state.status.channels = 1;
    state.marqueeStep = 20;
    state.marqueePixels = 3;
    state.volume = 1;
    state.balance = -0.7F;
    state.shuffle = false;
    MainWindowState::Spectrum spectrum;
    for (int x = 0; x < 75; ++x) {
        const int height = x / 4 * 7 % 17;
        spectrum.heights.push_back(height);
        spectrum.peaks.push_back(height + 2);
    }
    state.visualizer = spectrum;
    return state;
}

}

// Our own skins as they look in the window: what no rule alone would catch.
TEST(Golden, SampleSkinsLookAsTheyDid)
{
    using MainWindowRenderer::Clip;
    const auto playing = MainWindowState::webampScreenshot();
    struct Row {
        std::string_view golden;
        std::string_view skin;
        MainWindowState state;
        int scale;
        Clip clip;
    };
    const Row rows[] = {
        {"graphite-playing",     "graphite", playing,                 1, Clip::none    },
        {"graphite-idle",        "graphite", MainWindowState::idle(), 1, Clip::none    },
        {"aurora-playing",       "aurora",   playing,                 1, Clip::none    },
        {"arcade-idle",          "arcade",   MainWindowState::idle(), 1, Clip::none    },
        {"lagoon-clipped-2x",    "lagoon",   playing,                 2, Clip::toRegion},
        {"lagoon-counting-down", "lagoon",   countingDown(),          1, Clip::toRegion},
    };
    for (const auto& row : rows) {
        const auto skin = SkinParser::parse(std::filesystem::path(SKINKIT_SOURCE_FOLDER) /
                                            "examples/skins" / (std::string(row.skin) + ".wsz"));
        ASSERT_TRUE(skin) << row.skin;
        support::expectGolden(MainWindowRenderer::render(*skin, row.state, row.scale, row.clip),
                              row.golden);
    }
}

TEST(Golden, SamplePlaylistsLookAsTheyDid)
{
    const PlaylistWindowState state{
        .entries = {{"DJ Nico Parda - Parda Rattling Intro", 5.0},
                    {"Sj\u00F8h\u00E6sten - St\u00F6rst (Live @ Troms\u00F8)", 254.0, true},
                    {"A Name \u2013 With a \u201CTitle\u201D That Is Longer Than Its Row", 3725.0},
                    {"\u591C\u306E\u6B4C"},
                    {"jazzy_quilt-01.mp3", 61.0},
                    {"Not in Sight", 10.0}},
        .current = 2,
        .steps = {3, 0},
        .scrollPosition = 100,
        .status = {.transport = Transport::playing, .elapsed = 83, .duration = 3725},
        .openMenu = PlaylistLayout::Menu::list,
    };
    const auto skin = SkinParser::parse(std::filesystem::path(SKINKIT_SOURCE_FOLDER) /
                                        "examples/skins/lagoon.wsz");
    ASSERT_TRUE(skin);
    support::expectGolden(PlaylistWindowRenderer::render(*skin, state, 1), "lagoon-playlist");
    support::expectGolden(PlaylistWindowRenderer::renderShade(*skin, state, 1),
                          "lagoon-playlist-shaded");
}
