#include "SkinKit/SkinParser.h"
#include "SkinKit/Windows/Desktop/DesktopRenderer.h"
#include "tests/support/Golden.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using namespace SkinKit;

namespace {

constexpr MainWindowState (*playing)() = MainWindowState::webampScreenshot;

// A spectrum of every height up to `highest`, its peaks `gap` pixels above.
MainWindowState::Spectrum spectrum(int highest, int gap)
{
    MainWindowState::Spectrum spectrum;
    for (int x = 0; x < 75; ++x) {
        spectrum.heights.push_back(x / 4 * 7 % (highest + 1));
        spectrum.peaks.push_back(spectrum.heights.back() + gap);
    }
    return spectrum;
}

// As much as can differ from the presets.
MainWindowState countingDown()
{
    auto state = playing();
    state.status.timeMode = TimeMode::remaining;
    state.status.transport = Transport::paused;
    state.status.channels = 1;
    state.marqueeStep = 20;
    state.marqueePixels = 3;
    state.volume = 1;
    state.balance = -0.7F;
    state.shuffle = false;
    state.visualizer = spectrum(16, 2);
    return state;
}

MainWindowState tracing(bool shaded)
{
    auto state = MainWindowState::idle();
    MainWindowState::Oscilloscope trace;
    for (int x = 0; x < 75; ++x)
        trace.samples.push_back(static_cast<float>(x * x % 33 - 16) / 32);
    state.visualizer = trace;
    state.shaded = shaded;
    return state;
}

MainWindowState shadedSpectrum()
{
    auto state = playing();
    state.shaded = true;
    state.status.timeMode = TimeMode::remaining;
    state.status.duration = 1234;
    state.visualizer = spectrum(10, 1);
    return state;
}

EQWindowState equalizer(bool shaded)
{
    auto state = DesktopState::webampScreenshot().equalizer;
    state.shaded = shaded;
    state.pressed = EQWindowState::Band{5};
    state.automatic = true;
    state.volume = 0.5F;
    state.balance = -1;
    return state;
}

PlaylistWindowState playlist(bool shaded, PlaylistLayout::Steps steps)
{
    auto state = DesktopState::webampScreenshot().playlist;
    state.shaded = shaded;
    state.steps = steps;
    state.current = 7; // whose name is too long
    state.scrollPosition = 60;
    state.status.transport = Transport::stopped;
    state.openMenu = PlaylistLayout::Menu::list;
    state.entries.push_back({"\u591C\u306E\u6B4C"});
    return state;
}

template <class Renderer>
void expectGolden(std::string_view golden, const std::string& skin,
                  const typename Renderer::State& state, int scale, Clip clip)
{
    const auto path = std::filesystem::path(SKINKIT_SOURCE_FOLDER) / "examples/skins" / skin;
    support::expectGolden(
        Renderer::render(*SkinParser::parse(path.string() + ".wsz"), state, scale, clip), golden);
}

}

// Our own skins as they look in the windows.
// clang-format off
TEST(Golden, WindowsLookAsTheyDid)
{
    constexpr auto main = expectGolden<MainWindowRenderer>;
    constexpr auto eq = expectGolden<EQWindowRenderer>;
    constexpr auto list = expectGolden<PlaylistWindowRenderer>;
    const auto idle = MainWindowState::idle();
    main("graphite-playing",          "graphite", playing(),                 1, Clip::none);
    main("graphite-idle",             "graphite", idle,                      1, Clip::none);
    main("aurora-playing",            "aurora",   playing(),                 1, Clip::none);
    main("arcade-idle",               "arcade",   idle,                      1, Clip::none);
    main("lagoon-clipped-2x",         "lagoon",   playing(),                 2, Clip::toRegion);
    main("lagoon-counting-down",      "lagoon",   countingDown(),            1, Clip::toRegion);
    main("lagoon-shaded-2x",          "lagoon",   shadedSpectrum(),          2, Clip::toRegion);
    main("graphite-shaded",           "graphite", shadedSpectrum(),          1, Clip::none);
    main("graphite-tracing-2x",       "graphite", tracing(false),            2, Clip::none);
    main("graphite-shaded-tracing-3x", "graphite", tracing(true),            3, Clip::none);
    eq("lagoon-equalizer",            "lagoon",   equalizer(false),          1, Clip::toRegion);
    eq("lagoon-equalizer-shaded",     "lagoon",   equalizer(true),           1, Clip::toRegion);
    list("lagoon-playlist",           "lagoon",   playlist(false, {3, 0}),   1, Clip::none);
    list("lagoon-playlist-tall",      "lagoon",   playlist(false, {4, 2}),   1, Clip::none);
    list("lagoon-playlist-shaded",    "lagoon",   playlist(true, {3, 0}),    1, Clip::none);
    expectGolden<DesktopRenderer>(
        "lagoon-desktop", "lagoon", DesktopState::webampScreenshot(), 1, Clip::toRegion);
}
// clang-format on
