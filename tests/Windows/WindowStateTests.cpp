#include "SkinKit/Text/TextFont.h"
#include "SkinKit/Windows/Equalizer/EQWindowRenderer.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowRenderer.h"
#include "tests/support/WindowChecks.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

using namespace SkinKit;
using support::expectShown;
using support::noisySkin;
using Main = MainWindowState;
using EQ = EQWindowState;
using Playlist = PlaylistWindowState;

namespace {

template <class Renderer>
Image drawn(const Skin& skin, const typename Renderer::State& state)
{
    return Renderer::render(skin, state, 1, Clip::none);
}

// Each row changes a state, and has what the window then shows.
template <class Renderer, class State = typename Renderer::State>
void expectFollows(const State& before, const Skin& skin,
                   std::initializer_list<std::pair<void (*)(State&), support::Piece>> rows)
{
    for (const auto& [change, shown] : rows) {
        State state = before;
        change(state);
        expectShown(drawn<Renderer>(skin, state), skin, shown);
    }
}

const Playlist threeTracks{
    .entries = {{"One", 61.0, true}, {"Two"}, {std::string(99, 'W'), 122.0}},
      .current = 0
};

}

// clang-format off
TEST(WindowState, ShowsOnTheMainWindow)
{
    using enum Transport;
    expectFollows<MainWindowRenderer>(Main::webampScreenshot(), noisySkin(), {
        {[](Main& s) { s.status.transport = loading; },
         {"MAIN_WORKING_INDICATOR", {24, 28}, Rect{24, 28, 3, 9}}},
        {[](Main& s) { s.focused = false; },            {"MAIN_TITLE_BAR", {0, 0}}},
        {[](Main& s) { s.status.transport = stopped; }, {"MAIN_STEREO", {239, 41}}},
        {[](Main& s) { s.status.elapsed = 754; },       {"DIGIT_1", {48, 26}}},
        {[](Main& s) { s.status.channels = 6; },        {"MAIN_MONO", {212, 41}}},
        {[](Main& s) { s.status.channels.reset(); },    {"MAIN_STEREO", {239, 41}}},
        {[](Main& s) { s.volume = -3; },                {"MAIN_VOLUME_THUMB", {107, 58}}},
        {[](Main& s) { s.balance = -9; },
         {"MAIN_BALANCE_BACKGROUND", {177, 57}, Rect{191, 57, 24, 13}, 27}},
        {[](Main& s) { s.position = 2; },               {"MAIN_POSITION_SLIDER_THUMB", {235, 72}}},
        {[](Main& s) { s.shuffle = false; },
         {"MAIN_SHUFFLE_BUTTON", {164, 89}, Rect{164, 89, 46, 15}}},
        {[](Main& s) { s.repeatOn = false; },           {"MAIN_REPEAT_BUTTON", {210, 89}}},
        {[](Main& s) { s.eqOpen = false; },             {"MAIN_EQ_BUTTON", {219, 58}}},
        {[](Main& s) { s.playlistOpen = false; },       {"MAIN_PLAYLIST_BUTTON", {242, 58}}},
    });
    expectFollows<MainWindowRenderer>(Main::webampScreenshot(), noisySkin({"NUMS_EX"}), {
        {[](Main& s) { s.status.timeMode = TimeMode::remaining; }, {"MINUS_SIGN", {38, 32}}},
    });
}

TEST(WindowState, ShowsOnTheShadedMainWindow)
{
    using enum MainWindowLayout::TitleButton;
    expectFollows<MainWindowRenderer>({.position = 0.6, .shaded = true}, noisySkin(), {
        {[](Main& s) { s.position = 0.34; },    {"MAIN_SHADE_POSITION_THUMB", {231, 4}}},
        {[](Main& s) { s.position = 2; },       {"MAIN_SHADE_POSITION_THUMB_RIGHT", {240, 4}}},
        {[](Main& s) { s.pressed = options; },  {"MAIN_OPTIONS_BUTTON_DEPRESSED", {6, 3}}},
        {[](Main& s) { s.pressed = minimize; }, {"MAIN_MINIMIZE_BUTTON_DEPRESSED", {244, 3}}},
        {[](Main& s) { s.pressed = shade; },    {"MAIN_SHADE_BUTTON_SELECTED_DEPRESSED", {254, 3}}},
        {[](Main& s) { s.pressed = close; },    {"MAIN_CLOSE_BUTTON_DEPRESSED", {264, 3}}},
        {[](Main& s) { s.focused = false; },
         {"MAIN_SHADE_BACKGROUND", {0, 0}, Rect{0, 0, 79, 14}}},
    });
}

TEST(WindowState, ShowsOnTheEqualizer)
{
    using enum EQ::Control;
    const EQ state{.automatic = true, .preamp = 100, .bands = {0, 100, 50, 25, 75, 0, 0, 0, 0, 75}};
    const Skin skin = noisySkin();
    expectFollows<EQWindowRenderer>(state, skin, {
        {[](EQ& s) { s.focused = false; },        {"EQ_TITLE_BAR", {0, 0}}},
        {[](EQ& s) { s.on = false; },             {"EQ_ON_BUTTON", {14, 18}}},
        {[](EQ& s) { s.pressed = on; },           {"EQ_ON_BUTTON_SELECTED_DEPRESSED", {14, 18}}},
        {[](EQ& s) { s.pressed = automatic; },    {"EQ_AUTO_BUTTON_SELECTED_DEPRESSED", {40, 18}}},
        {[](EQ& s) { s.pressed = presets; },      {"EQ_PRESETS_BUTTON_SELECTED", {217, 18}}},
        {[](EQ& s) { s.pressed = shade; },        {"EQ_MAXIMIZE_BUTTON_ACTIVE", {254, 3}}},
        {[](EQ& s) { s.pressed = close; },        {"EQ_CLOSE_BUTTON_ACTIVE", {264, 3}}},
        {[](EQ& s) { s.pressed = preamp; },       {"EQ_SLIDER_THUMB_SELECTED", {22, 38}}},
        {[](EQ& s) { s.pressed = EQ::Band{9}; },  {"EQ_SLIDER_THUMB_SELECTED", {241, 50}}},
        {[](EQ& s) { s.pressed = EQ::Band{10}; }, {"EQ_SLIDER_THUMB", {241, 50}}},
    });
    const auto shaded = EQ{.shaded = true, .volume = 0.5F};
    expectFollows<EQWindowRenderer>(shaded, skin, {
        {[](EQ& s) { s.volume = 0; },      {"EQ_SHADE_VOLUME_SLIDER_LEFT", {61, 4}}},
        {[](EQ& s) { s.balance = 0; },     {"EQ_SHADE_BALANCE_SLIDER_CENTER", {184, 4}}},
        {[](EQ& s) { s.volume = 1; },      {"EQ_SHADE_VOLUME_SLIDER_RIGHT", {155, 4}}},
        {[](EQ& s) { s.balance = -7; },    {"EQ_SHADE_BALANCE_SLIDER_LEFT", {164, 4}}},
        {[](EQ& s) { s.balance = 1; },     {"EQ_SHADE_BALANCE_SLIDER_RIGHT", {204, 4}}},
        {[](EQ& s) { s.pressed = shade; }, {"EQ_MINIMIZE_BUTTON_ACTIVE", {254, 3}}},
        {[](EQ& s) { s.pressed = close; }, {"EQ_SHADE_CLOSE_BUTTON_ACTIVE", {264, 3}}},
        {[](EQ& s) { s.focused = false; },
         {"EQ_SHADE_BACKGROUND", {0, 0}, Rect{0, 0, 61, 14}}},
    });
}

TEST(WindowState, ShowsOnThePlaylist)
{
    using enum PlaylistLayout::Menu;
    expectFollows<PlaylistWindowRenderer>(threeTracks, noisySkin(), {
        {[](Playlist& s) { s.focused = false; },   {"PLAYLIST_TOP_RIGHT_CORNER", {250, 0}}},
        {[](Playlist& s) { s.scrollPosition = 99; }, // where all rows are visible
         {"PLAYLIST_SCROLL_HANDLE", {260, 20}}},
        {[](Playlist& s) { s.entries.resize(9); s.scrollPosition = 99; },
         {"PLAYLIST_SCROLL_HANDLE", {260, 60}}},
        {[](Playlist& s) { s.openMenu = add; },       {"PLAYLIST_ADD_URL", {14, 50}}},
        {[](Playlist& s) { s.openMenu = remove; },    {"PLAYLIST_REMOVE_MISC", {43, 32}}},
        {[](Playlist& s) { s.openMenu = selection; }, {"PLAYLIST_SELECT_ALL", {72, 86}}},
        {[](Playlist& s) { s.openMenu = misc; },      {"PLAYLIST_MISC_MENU_BAR", {98, 50}}},
    });
}
// clang-format on

TEST(WindowState, ShowsInTheTextsOfThePlaylist)
{
    const Skin skin = noisySkin();
    auto state = threeTracks;
    state.entries.push_back({"unknown", -5.0, true});
    const auto expectText = [&](Point at, std::string_view text) {
        const auto image = textImage(skin, text);
        const Image window = drawn<PlaylistWindowRenderer>(skin, state);
        EXPECT_EQ(window.crop({at.x, at.y, image->width(), 6}), image) << text;
    };
    expectText({132, 88}, "1:01/3:03"); // selected, of all
    const Image before = drawn<PlaylistWindowRenderer>(skin, state);
    state.entries[0].duration = 6e20; // fills the field, and no more
    expectText({132, 88}, "100000000000000000");
    EXPECT_EQ(drawn<PlaylistWindowRenderer>(skin, state).crop({222, 88, 53, 6}),
              before.crop({222, 88, 53, 6}));
    state.shaded = true;
    state.current = 2; // with a name that is far too long
    expectText({5, 4}, std::string(40, 'W') + "…");
    expectText({225, 4}, "2:02");
    state.current = 9;
    expectText({5, 4}, "[No file]");
}

TEST(WindowState, ShowsTheSameInTwoLayersAsInOne)
{
    const Skin skin = noisySkin();
    const Main state{.focused = false, .volume = 0.3F};
    for (const int scale : {INT_MIN, 3}) {
        const Image base = MainWindowRenderer::renderBase(skin, state.focused, scale);
        EXPECT_EQ(MainWindowRenderer::renderDynamic(base, skin, state, scale),
                  MainWindowRenderer::render(skin, state, scale, Clip::none));
    }
}

TEST(WindowState, ShowsNothingOfMissingSheets)
{
    const auto main = Main::webampScreenshot();
    EXPECT_EQ(drawn<MainWindowRenderer>({}, main).pixel({0, 0}), packPixel(26, 26, 26));
    const Skin mute = noisySkin({"TEXT"});
    expectShown(drawn<MainWindowRenderer>(mute, main), mute,
                {
                    "MAIN_WINDOW_BACKGROUND", {0, 0},
                     Rect{111, 27, 154, 6}
    });

    const Image nothing(PixelBuffer::transparent({275, 116}), Image::Alpha::any);
    EXPECT_EQ(drawn<EQWindowRenderer>(noisySkin({"EQMAIN"}), {}), nothing);
    EXPECT_EQ(drawn<EQWindowRenderer>(noisySkin({"EQMAIN", "EQ_EX"}), {.shaded = true}),
              nothing.crop({0, 0, 275, 14}));
    const Skin plain = noisySkin({"EQ_EX"});
    EXPECT_EQ(drawn<EQWindowRenderer>(plain, {.shaded = true}),
              plain.image("EQ_TITLE_BAR_SELECTED"));
    EQ pressed{.pressed = EQ::Control::shade};
    expectShown(drawn<EQWindowRenderer>(plain, pressed), plain,
                {
                    "EQ_MAXIMIZE_BUTTON_ACTIVE_FALLBACK", {254, 3}
    });

    const Image list = drawn<PlaylistWindowRenderer>({}, threeTracks);
    for (int y = 0; y < list.height(); ++y)
        for (int x = 0; x < list.width(); ++x)
            ASSERT_EQ(list.pixel({x, y}) != transparentPixel,
                      contains(Rect{12, 20, 243, 58}, Point{x, y}));
    EXPECT_FALSE(miniTimeImage({}, MiniTime::blank()));
}
