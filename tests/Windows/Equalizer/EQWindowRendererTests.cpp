#include "SkinKit/Windows/Equalizer/EQGraph.h"
#include "SkinKit/Windows/Equalizer/EQWindowRenderer.h"
#include "tests/support/Collage.h"
#include "tests/support/SkinBuilder.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

using namespace SkinKit;
using support::Collage;
using support::expectSame;
using support::noisySkin;
using Band = EQWindowState::Band;
using Control = EQWindowState::Control;

namespace {

// Something of everything, nothing where the initial state has it.
EQWindowState busyState()
{
    EQWindowState state;
    state.automatic = true;
    state.preamp = 100;
    state.bands = {0, 100, 50, 25, 75, 0, 100, 50, 25, 75};
    state.volume = 0.5F;
    state.balance = -1;
    return state;
}

EQWindowState shadedState()
{
    auto state = busyState();
    state.shaded = true;
    return state;
}

// A slider with its top left corner at `at`, its thumb `thumbY` pixels lower.
void addSlider(Collage& collage, const Skin& skin, Point at, int frame, int thumbY)
{
    collage.add(skin.image("EQ_SLIDER_BACKGROUND", BandFrame{frame}), at);
    collage.add({
        "EQ_SLIDER_THUMB", {at.x + 1, at.y + thumbY}
    });
}

// What `state` shows must be what the busy window shows with `piece` over it.
struct Change {
    EQWindowState state;
    Collage::Piece piece;
};

void expectChange(const Skin& skin, const EQWindowState& before, const Change& change)
{
    support::expectAdded(skin, EQWindowRenderer::render(skin, change.state, 1, Clip::none),
                         EQWindowRenderer::render(skin, before, 1, Clip::none), change.piece);
}

template <typename Change>
EQWindowState with(EQWindowState state, Change change)
{
    change(state);
    return state;
}

EQWindowState pressing(EQWindowState state, EQWindowState::Part part)
{
    state.pressed = part;
    return state;
}

}

TEST(EQWindowRenderer, PlacesEveryPartOfTheWindow)
{
    const Skin skin = noisySkin();
    const auto state = busyState();
    Collage expected(skin);
    expected.add({
        {"EQ_WINDOW_BACKGROUND",    {0, 0}   },
        {"EQ_TITLE_BAR_SELECTED",   {0, 0}   },
        {"EQ_ON_BUTTON_SELECTED",   {14, 18} },
        {"EQ_AUTO_BUTTON_SELECTED", {40, 18} },
        {"EQ_PRESETS_BUTTON",       {217, 18}}
    });
    expected.add(EQGraph::render(skin, state.bands, state.preamp), {86, 17});
    addSlider(expected, skin, {21, 38}, 27, 0);
    for (int i = 0; i < 10; i += 5) {
        addSlider(expected, skin, {78 + 18 * i, 38}, 0, 51);
        addSlider(expected, skin, {96 + 18 * i, 38}, 27, 0);
        addSlider(expected, skin, {114 + 18 * i, 38}, 14, 25);
        addSlider(expected, skin, {132 + 18 * i, 38}, 7, 38);
        addSlider(expected, skin, {150 + 18 * i, 38}, 20, 12);
    }
    expectSame(EQWindowRenderer::render(skin, state, 1, Clip::toRegion),
               std::move(expected).image());
}

TEST(EQWindowRenderer, PlacesEveryPartOfTheShadedWindow)
{
    const Skin skin = noisySkin();
    Collage expected(skin, {275, 14});
    expected.add({
        {"EQ_SHADE_BACKGROUND_SELECTED",  {0, 0}  },
        {"EQ_SHADE_VOLUME_SLIDER_CENTER", {108, 4}},
        {"EQ_SHADE_BALANCE_SLIDER_LEFT",  {164, 4}}
    });
    expectSame(EQWindowRenderer::render(skin, shadedState(), 1, Clip::toRegion),
               std::move(expected).image());
}

TEST(EQWindowRenderer, FollowsEachPartOfTheState)
{
    const Skin skin = noisySkin();
    const auto state = busyState();
    const auto focused = with(state, [](auto& s) { s.focused = false; });
    const auto off = with(state, [](auto& s) { s.on = false; });
    const auto manual = with(state, [](auto& s) { s.automatic = false; });
    // clang-format off
    const Change changes[] = {
        {focused,                              {"EQ_TITLE_BAR",                      {0, 0}}},
        {off,                                  {"EQ_ON_BUTTON",                      {14, 18}}},
        {manual,                               {"EQ_AUTO_BUTTON",                    {40, 18}}},
        {pressing(state, Control::on),         {"EQ_ON_BUTTON_SELECTED_DEPRESSED",   {14, 18}}},
        {pressing(state, Control::automatic),  {"EQ_AUTO_BUTTON_SELECTED_DEPRESSED", {40, 18}}},
        {pressing(state, Control::presets),    {"EQ_PRESETS_BUTTON_SELECTED",        {217, 18}}},
        {pressing(state, Control::shade),      {"EQ_MAXIMIZE_BUTTON_ACTIVE",         {254, 3}}},
        {pressing(state, Control::close),      {"EQ_CLOSE_BUTTON_ACTIVE",            {264, 3}}},
        {pressing(state, Control::preamp),     {"EQ_SLIDER_THUMB_SELECTED",          {22, 38}}},
        {pressing(state, Band{0}),             {"EQ_SLIDER_THUMB_SELECTED",          {79, 89}}},
        {pressing(state, Band{9}),             {"EQ_SLIDER_THUMB_SELECTED",          {241, 50}}},
        {pressing(off, Control::on),           {"EQ_ON_BUTTON_DEPRESSED",            {14, 18}}},
        {pressing(manual, Control::automatic), {"EQ_AUTO_BUTTON_DEPRESSED",          {40, 18}}},
    };
    // clang-format on
    for (const auto& change : changes)
        expectChange(skin, state, change);
    for (const int nowhere : {-1, 10, INT_MIN, INT_MAX})
        expectSame(EQWindowRenderer::render(skin, pressing(state, Band{nowhere}), 1, Clip::none),
                   EQWindowRenderer::render(skin, state, 1, Clip::none));
}

TEST(EQWindowRenderer, FollowsEachPartOfTheShadedState)
{
    const Skin skin = noisySkin();
    const auto state = shadedState();
    const Change changes[] = {
        {pressing(state, Control::shade), {"EQ_MINIMIZE_BUTTON_ACTIVE", {254, 3}}   },
        {pressing(state, Control::close), {"EQ_SHADE_CLOSE_BUTTON_ACTIVE", {264, 3}}},
    };
    for (const auto& change : changes)
        expectChange(skin, state, change);

    // clang-format off
    const std::tuple<float, std::string_view, int, float, std::string_view, int> rows[] = {
        {0, "EQ_SHADE_VOLUME_SLIDER_LEFT", 61, 0, "EQ_SHADE_BALANCE_SLIDER_CENTER", 184},
        {1, "EQ_SHADE_VOLUME_SLIDER_RIGHT", 155, 1, "EQ_SHADE_BALANCE_SLIDER_RIGHT", 204},
        {std::nanf(""), "EQ_SHADE_VOLUME_SLIDER_LEFT", 61, -7, "EQ_SHADE_BALANCE_SLIDER_LEFT", 164},
    };
    // clang-format on
    for (const auto& [volume, volumeThumb, volumeX, balance, balanceThumb, balanceX] : rows) {
        Collage expected(skin, {275, 14});
        expected.add({
            {"EQ_SHADE_BACKGROUND", {0, 0}       },
            {volumeThumb,           {volumeX, 4} },
            {balanceThumb,          {balanceX, 4}}
        });
        const auto unfocused = with(state, [&](auto& s) {
            s.focused = false;
            s.volume = volume;
            s.balance = balance;
        });
        expectSame(EQWindowRenderer::render(skin, unfocused, 1, Clip::none),
                   std::move(expected).image());
    }
}

TEST(EQWindowRenderer, LeavesOutWhatASkinLacks)
{
    const Image nothing(PixelBuffer::transparent({275, 116}), Image::Alpha::any);
    expectSame(EQWindowRenderer::render(noisySkin({"EQMAIN"}), busyState(), 1, Clip::none),
               nothing);
    expectSame(
        EQWindowRenderer::render(noisySkin({"EQMAIN", "EQ_EX"}), shadedState(), 1, Clip::none),
        *nothing.crop({0, 0, 275, 14}));

    // A sheet that ends behind the window's background has nothing of the graph or the sliders.
    const auto skin = support::SkinBuilder{}
                          .sheet("eqmain.bmp", support::solidImage({275, 116}, {1, 2, 3}))
                          .parse();
    ASSERT_TRUE(skin);
    expectSame(EQWindowRenderer::render(*skin, busyState(), 1, Clip::none),
               support::solidImage({275, 116}, {1, 2, 3}));

    // Without the extra sheet the shaded window is the title bar, without thumbs, and the full
    // window's shade button looks as on the bar out of focus.
    const Skin plain = noisySkin({"EQ_EX"});
    expectSame(EQWindowRenderer::render(plain, shadedState(), 1, Clip::none),
               *plain.image("EQ_TITLE_BAR_SELECTED"));
    expectChange(plain, busyState(),
                 {
                     pressing(busyState(), Control::shade),
                     {"EQ_MAXIMIZE_BUTTON_ACTIVE_FALLBACK", {254, 3}}
    });
}
