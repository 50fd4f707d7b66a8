#include "SkinKit/SkinParser.h"
#include "SkinKit/Windows/Desktop/DesktopRenderer.h"
#include "tests/support/Golden.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
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

MainWindowState shaded()
{
    auto state = MainWindowState::webampScreenshot();
    state.shaded = true;
    state.status.timeMode = TimeMode::remaining;
    state.status.duration = 1234;
    MainWindowState::Spectrum spectrum;
    for (int x = 0; x < 75; ++x) {
        spectrum.heights.push_back(x / 4 * 7 % 11);
        spectrum.peaks.push_back(x / 4 * 7 % 11 + 1);
    }
    state.visualizer = spectrum;
    return state;
}

Skin sample(const std::string& name)
{
    return SkinParser::parse(std::filesystem::path(SKINKIT_SOURCE_FOLDER) / "examples/skins" /
                             (name + ".wsz"))
        .value();
}

}

// Our own skins as they look in the windows: what no rule alone would catch.
TEST(Golden, MainWindowsLookAsTheyDid)
{
    const auto playing = MainWindowState::webampScreenshot();
    struct Row {
        std::string_view golden;
        std::string skin;
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
        {"lagoon-shaded-2x",     "lagoon",   shaded(),                2, Clip::toRegion},
    };
    for (const auto& row : rows)
        support::expectGolden(
            MainWindowRenderer::render(sample(row.skin), row.state, row.scale, row.clip),
            row.golden);
}

TEST(Golden, EqualizersLookAsTheyDid)
{
    EQWindowState state{
        .pressed = EQWindowState::Band{5},
        .automatic = true,
        .preamp = 60,
        .bands = {100, 80, 65, 50, 30, 0, 20, 50, 90, 100},
        .volume = 0.5F,
        .balance = -1
    };
    const Skin skin = sample("lagoon");
    support::expectGolden(EQWindowRenderer::render(skin, state, 1, Clip::toRegion),
                          "lagoon-equalizer");
    state.shaded = true;
    support::expectGolden(EQWindowRenderer::render(skin, state, 1, Clip::toRegion),
                          "lagoon-equalizer-shaded");
}

TEST(Golden, PlaylistsLookAsTheyDid)
{
    PlaylistWindowState state{
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
    const Skin skin = sample("lagoon");
    support::expectGolden(PlaylistWindowRenderer::render(skin, state, 1, Clip::none),
                          "lagoon-playlist");
    state.shaded = true;
    support::expectGolden(PlaylistWindowRenderer::render(skin, state, 1, Clip::none),
                          "lagoon-playlist-shaded");
}
