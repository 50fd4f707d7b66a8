#include "SkinKit/Text/TextFont.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/VisRenderer.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/Collage.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using support::Collage;
using support::expectAdded;
using support::expectSame;
using support::noisySkin;

namespace {

void addBase(Collage& collage, bool focused = true)
{
    collage.add({
        {"MAIN_WINDOW_BACKGROUND", {0, 0}},
        {focused ? "MAIN_TITLE_BAR_SELECTED" : "MAIN_TITLE_BAR", {0, 0}},
        {"MAIN_CLUTTER_BAR_BACKGROUND", {10, 22}},
        {"MAIN_PREVIOUS_BUTTON", {16, 88}},
        {"MAIN_PLAY_BUTTON", {39, 88}},
        {"MAIN_PAUSE_BUTTON", {62, 88}},
        {"MAIN_STOP_BUTTON", {85, 88}},
        {"MAIN_NEXT_BUTTON", {108, 88}, Rect{108, 88, 22, 18}},
        {"MAIN_EJECT_BUTTON", {136, 89}}
    });
}

// A window that shows something of everything, none of it where the presets have it.
MainWindowState busyState()
{
    MainWindowState state = MainWindowState::webampScreenshot();
    state.status.timeMode = TimeMode::remaining;
    state.marqueeStep = 7;
    state.marqueePixels = 3;
    state.balance = -0.4F;
    state.visualizer = MainWindowState::Oscilloscope{std::vector(75, 0.3F)};
    return state;
}

constexpr Size shadeSize{275, 14};

MainWindowState shaded(MainWindowState state = MainWindowState::webampScreenshot())
{
    state.shaded = true;
    return state;
}

}

TEST(MainWindowRenderer, DrawsThePlayerOfTheReferenceScreenshots)
{
    const Skin skin = noisySkin();
    const auto state = MainWindowState::webampScreenshot();
    Collage expected(skin);
    addBase(expected);
    expected.add({
        {"MAIN_PLAYING_INDICATOR", {26, 28}},
        {"MAIN_NOT_WORKING_INDICATOR", {24, 28}, Rect{24, 28, 3, 9}},
        {"NO_MINUS_SIGN", {38, 26}},
        {"DIGIT_0", {48, 26}},
        {"DIGIT_0", {60, 26}},
        {"DIGIT_0", {78, 26}},
        {"DIGIT_3", {90, 26}}
    });
    // A spectrum without columns still paints its background and its dots.
    expected.add(VisRenderer(skin.visColors, VisLayout::main()).makeImage(), {24, 43});
    expected.add(textImage(skin, state.marqueeText), {111, 27}, Rect{111, 27, 154, 6});
    expected.add(textImage(skin, "128"), {111, 43});
    expected.add(textImage(skin, "44"), {156, 43});
    expected.add({
        {"MAIN_MONO", {212, 41}},
        {"MAIN_STEREO_SELECTED", {239, 41}},
        {"MAIN_VOLUME_BACKGROUND", {107, 57}, {}, 21},
        {"MAIN_VOLUME_THUMB", {147, 58}},
        {"MAIN_BALANCE_BACKGROUND", {177, 57}, {}, 0},
        {"MAIN_BALANCE_THUMB", {189, 58}},
        {"MAIN_EQ_BUTTON_SELECTED", {219, 58}},
        {"MAIN_PLAYLIST_BUTTON_SELECTED", {242, 58}},
        {"MAIN_POSITION_SLIDER_BACKGROUND", {16, 72}},
        {"MAIN_POSITION_SLIDER_THUMB", {147, 72}},
        {"MAIN_SHUFFLE_BUTTON_SELECTED", {164, 89}},
        {"MAIN_REPEAT_BUTTON_SELECTED", {210, 89}}
    });
    expectSame(MainWindowRenderer::render(skin, state, 1, Clip::none), std::move(expected).image());
}

TEST(MainWindowRenderer, FollowsEachPartOfTheState)
{
    const auto with = [](auto change) {
        MainWindowState state = MainWindowState::webampScreenshot();
        change(state);
        return state;
    };
    const auto channels = [&](std::optional<int> count) {
        return with([=](auto& s) { s.status.channels = count; });
    };
    const auto volume = [&](float value) { return with([=](auto& s) { s.volume = value; }); };
    const auto balance = [&](float value) { return with([=](auto& s) { s.balance = value; }); };
    const auto position = [&](double value) { return with([=](auto& s) { s.position = value; }); };
    const auto transport = [&](Transport value) {
        return with([=](auto& s) { s.status.transport = value; });
    };
    const auto left = with([](auto& s) { s.status.timeMode = TimeMode::remaining; });
    const auto tenMinutes = with([](auto& s) { s.status.elapsed = 754; });
    // clang-format off
    const std::pair<MainWindowState, Collage::Piece> rows[] = {
        {transport(Transport::paused),             {"MAIN_PAUSED_INDICATOR", {26, 28}}},
        {transport(Transport::loading), {"MAIN_WORKING_INDICATOR", {24, 28}, Rect{24, 28, 3, 9}}},
        {with([](auto& s) { s.focused = false; }), {"MAIN_TITLE_BAR", {0, 0}}},
        {left,                                     {"MINUS_SIGN", {38, 26}}},
        {left,                                     {"DIGIT_2", {90, 26}}},
        {tenMinutes,                               {"DIGIT_1", {48, 26}}},
        {channels(1),                              {"MAIN_MONO_SELECTED", {212, 41}}},
        {channels(1),                              {"MAIN_STEREO", {239, 41}}},
        {channels(6),                              {"MAIN_MONO", {212, 41}}},
        {channels(6),                              {"MAIN_STEREO", {239, 41}}},
        {channels({}),                             {"MAIN_STEREO", {239, 41}}},
        {volume(-3),                               {"MAIN_VOLUME_THUMB", {107, 58}}},
        {volume(0), {"MAIN_VOLUME_BACKGROUND", {107, 57}, Rect{121, 57, 54, 13}, 0}},
        {volume(3),                                {"MAIN_VOLUME_THUMB", {158, 58}}},
        {volume(3), {"MAIN_VOLUME_BACKGROUND", {107, 57}, Rect{107, 57, 51, 13}, 27}},
        {balance(-1),                              {"MAIN_BALANCE_THUMB", {177, 58}}},
        {balance(-9), {"MAIN_BALANCE_BACKGROUND", {177, 57}, Rect{191, 57, 24, 13}, 27}},
        {balance(9),                               {"MAIN_BALANCE_THUMB", {201, 58}}},
        {position(-1),                             {"MAIN_POSITION_SLIDER_THUMB", {16, 72}}},
        {position(2),                              {"MAIN_POSITION_SLIDER_THUMB", {235, 72}}},
    };
    // clang-format on
    const Skin skin = noisySkin();
    for (const auto& [state, shown] : rows) {
        const Image window = MainWindowRenderer::render(skin, state, 1, Clip::none);
        expectAdded(skin, window, window, shown);
    }
}

TEST(MainWindowRenderer, ScrollsTheMarqueeInsideItsArea)
{
    const Skin skin = noisySkin();
    const Rect area{111, 27, 154, 6};
    auto state = MainWindowState::webampScreenshot();
    const std::string loop = state.marqueeText + "  ***  " + state.marqueeText;
    for (const auto& [step, pixels, offset] : {
             std::tuple{0,  0,  0  },
             {3,  2,  17 },
             {50, 0,  250},
             {53, 0,  0  },
             {0,  -1, 264}
    }) {
        state.marqueeStep = step;
        state.marqueePixels = pixels;
        const Image window = MainWindowRenderer::render(skin, state, 1, Clip::none);
        Collage expected(skin);
        addBase(expected);
        expected.add(textImage(skin, loop), {111 - offset, 27}, area);
        expectSame(*window.crop(area), *std::move(expected).image().crop(area));
        // The row above and the column beyond stay as they were.
        EXPECT_EQ(*window.crop({111, 26, 164, 1}), *skin.sheets.at("MAIN").crop({111, 26, 164, 1}));
        EXPECT_EQ(*window.crop({265, 27, 9, 6}), *skin.sheets.at("MAIN").crop({265, 27, 9, 6}));
    }
}

TEST(MainWindowRenderer, PutsTheMinusOfPlainDigitsLower)
{
    const Skin skin = noisySkin({"NUMS_EX"});
    const Image window = MainWindowRenderer::render(skin, busyState(), 1, Clip::none);
    EXPECT_EQ(*window.crop({38, 32, 5, 1}), *skin.sheets.at("NUMBERS").crop({20, 6, 5, 1}));
    EXPECT_EQ(*window.crop({38, 26, 9, 6}), *skin.sheets.at("MAIN").crop({38, 26, 9, 6}));
    EXPECT_EQ(*window.crop({48, 26, 9, 13}), *skin.sheets.at("NUMBERS").crop({0, 0, 9, 13}));
}

TEST(MainWindowRenderer, PushesTheVisualizerDownAtScaleOneOnly)
{
    const Skin skin = noisySkin();
    auto state = MainWindowState::idle();
    state.visualizer = MainWindowState::Spectrum{{16}, {}};
    for (const int scale : {1, 2}) {
        VisRenderer vis(skin.visColors, VisLayout::main());
        vis.drawBars(std::vector{16}, {}, scale == 1 ? 2 : 0);
        const Image window = MainWindowRenderer::render(skin, state, scale, Clip::none);
        for (int y = 0; y < 16; ++y)
            EXPECT_EQ(window.pixel({24 * scale, (43 + y) * scale}), vis.makeImage().pixel({0, y}))
                << "scale " << scale << ", row " << y;
    }
}

TEST(MainWindowRenderer, DrawsTheSameInTwoLayersAsInOne)
{
    const Skin skin = noisySkin();
    for (const int scale : {INT_MIN, 1, 3})
        for (const bool focused : {false, true}) {
            auto state = busyState();
            state.focused = focused;
            const Image base = MainWindowRenderer::renderBase(skin, focused, scale);
            expectSame(MainWindowRenderer::renderDynamic(base, skin, state, scale),
                       MainWindowRenderer::render(skin, state, scale, Clip::none));
        }
    Collage expected(skin);
    addBase(expected, false);
    expectSame(MainWindowRenderer::renderBase(skin, false, 1), std::move(expected).image());
}

TEST(MainWindowRenderer, LeavesOutWhatASkinLacks)
{
    // No background at all: a dark grey one.
    const Image bare = MainWindowRenderer::render(Skin{}, busyState(), 1, Clip::none);
    for (const Point at : {
             Point{0,   0  },
             Point{274, 115},
             Point{120, 29 }
    })
        EXPECT_EQ(bare.pixel(at), packPixel(26, 26, 26));
    // A narrow one leaves the rest transparent.
    Skin narrow;
    narrow.sheets.emplace("MAIN", support::solidImage({200, 116}, {1, 2, 3}));
    const Image window = MainWindowRenderer::render(narrow, MainWindowState::idle(), 1, Clip::none);
    EXPECT_EQ(window.pixel({199, 115}), packPixel(1, 2, 3));
    EXPECT_EQ(window.pixel({200, 115}), transparentPixel);
    // Without the text sheet the fields stay as the background paints them.
    const Skin mute = noisySkin({"TEXT"});
    const Image silent = MainWindowRenderer::render(mute, busyState(), 1, Clip::none);
    for (const Rect& field : {
             Rect{111, 27, 154, 6},
             Rect{111, 43, 15,  6},
             Rect{156, 43, 10,  6}
    })
        EXPECT_EQ(silent.crop(field), mute.sheets.at("MAIN").crop(field));
}

TEST(MainWindowRenderer, PlacesEveryPartOfTheShadedWindow)
{
    const Skin skin = noisySkin();
    const auto state = shaded();
    Collage expected(skin, shadeSize);
    expected.add({
        "MAIN_SHADE_BACKGROUND_SELECTED", {0, 0}
    });
    expected.add(VisRenderer(skin.visColors, VisLayout::shade(1)).makeImage(), {79, 5});
    expected.add(miniTimeImage(skin, {" ", "0", "0", "0", "3"}), {127, 4});
    expected.add({
        {"MAIN_SHADE_POSITION_BACKGROUND", {226, 4}},
        {"MAIN_SHADE_POSITION_THUMB",      {234, 4}}  // 0.6 of 14 pixels
    });
    expectSame(MainWindowRenderer::render(skin, state, 1, Clip::none), std::move(expected).image());
}

TEST(MainWindowRenderer, ShadesAStoppedPlayerOutOfFocus)
{
    const Skin skin = noisySkin();
    auto state = shaded(MainWindowState::idle());
    state.focused = false;
    Collage expected(skin, shadeSize);
    expected.add({
        "MAIN_SHADE_BACKGROUND", {0, 0}
    });
    expected.add(miniTimeImage(skin, MiniTime::blank()), {127, 4});
    expected.add({
        "MAIN_SHADE_POSITION_BACKGROUND", {226, 4}
    });
    expectSame(MainWindowRenderer::render(skin, state, 1, Clip::none), std::move(expected).image());
}

TEST(MainWindowRenderer, ChoosesTheShadedThumbByThePosition)
{
    const Skin skin = noisySkin();
    const std::tuple<double, std::string_view, int> rows[] = {
        {-1,   "MAIN_SHADE_POSITION_THUMB_LEFT",  226},
        {0.33, "MAIN_SHADE_POSITION_THUMB_LEFT",  231},
        {0.34, "MAIN_SHADE_POSITION_THUMB",       231},
        {0.66, "MAIN_SHADE_POSITION_THUMB_RIGHT", 235},
        {2,    "MAIN_SHADE_POSITION_THUMB_RIGHT", 240},
    };
    auto state = shaded(MainWindowState::idle());
    const Image without = MainWindowRenderer::render(skin, state, 1, Clip::none);
    for (const auto& [position, thumb, x] : rows) {
        state.position = position;
        expectAdded(skin, MainWindowRenderer::render(skin, state, 1, Clip::none), without,
                    {
                        thumb, {x, 4}
        });
    }
}

TEST(MainWindowRenderer, ShowsThePressedTitleButtonOnlyWhenShaded)
{
    using MainWindowLayout::TitleButton;
    const Skin skin = noisySkin();
    const std::tuple<TitleButton, std::string_view, int> rows[] = {
        {TitleButton::options,  "MAIN_OPTIONS_BUTTON_DEPRESSED",        6  },
        {TitleButton::minimize, "MAIN_MINIMIZE_BUTTON_DEPRESSED",       244},
        {TitleButton::shade,    "MAIN_SHADE_BUTTON_SELECTED_DEPRESSED", 254},
        {TitleButton::close,    "MAIN_CLOSE_BUTTON_DEPRESSED",          264},
    };
    auto state = shaded();
    const Image released = MainWindowRenderer::render(skin, state, 1, Clip::none);
    for (const auto& [button, sprite, x] : rows) {
        state.pressed = button;
        expectAdded(skin, MainWindowRenderer::render(skin, state, 1, Clip::none), released,
                    {
                        sprite, {x, 3}
        });
    }
    state.shaded = false;
    expectSame(
        MainWindowRenderer::render(skin, state, 1, Clip::none),
        MainWindowRenderer::render(skin, MainWindowState::webampScreenshot(), 1, Clip::none));
}

// A gauge of one bar and one peak, told from the pixels around it by the colours.
TEST(MainWindowRenderer, DrawsTheShadedVisualizerFinerAboveScale1)
{
    const Skin skin = noisySkin();
    auto state = shaded();
    state.visualizer = MainWindowState::Spectrum{{3}, {5}};
    const auto image = [&](int scale) {
        return MainWindowRenderer::render(skin, state, scale, Clip::none);
    };
    const auto gauge = [&](int displayScale) {
        VisRenderer renderer(skin.visColors, VisLayout::shade(displayScale));
        renderer.drawBars(std::vector{3}, std::vector{5}, 0);
        return renderer.makeImage();
    };
    EXPECT_EQ(image(1).crop({79, 5, 38, 5}), gauge(1).crop({0, 0, 38, 5}));
    EXPECT_EQ(image(2).crop({158, 10, 76, 10}), gauge(2).crop({0, 0, 76, 10}));

    // At 3 a pixel of the picture has one and a half of the device's.
    const Image thrice = image(3);
    const Image fine = gauge(2);
    for (int y = 0; y < 15; ++y)
        for (int x = 0; x < 114; ++x)
            ASSERT_EQ(thrice.pixel({237 + x, 15 + y}),
                      fine.pixel({(2 * x + 1) / 3, (2 * y + 1) / 3}))
                << x << ", " << y;
}

TEST(MainWindowRenderer, LeavesTheShadedClocksColonFreeOfTheVisualizer)
{
    const Skin skin = noisySkin();
    const auto background = skin.image("MAIN_SHADE_BACKGROUND_SELECTED");
    for (const int scale : {1, 2, 3}) {
        const auto image = MainWindowRenderer::render(skin, shaded(), scale, Clip::none);
        for (int y = 0; y < 14; ++y)
            EXPECT_EQ(image.pixel({145 * scale, y * scale}), background->pixel({145, y})) << y;
    }
}

TEST(MainWindowRenderer, DrawsTheShadedOscilloscope)
{
    const Skin skin = noisySkin();
    auto state = shaded();
    state.visualizer = MainWindowState::Oscilloscope{std::vector<float>(37, 0.0F)};
    const auto image = MainWindowRenderer::render(skin, state, 1, Clip::none);
    for (int x = 0; x < 37; ++x)
        EXPECT_EQ(image.pixel({79 + x, 7}), opaquePixel(skin.visColors[18])) << x;
}

TEST(MainWindowRenderer, LeavesOutWhatASkinLacksWhenShaded)
{
    const auto bare =
        MainWindowRenderer::render(noisySkin({"TITLEBAR", "TEXT"}), shaded(), 1, Clip::none);
    Collage expected(Skin{}, shadeSize);
    expected.add(VisRenderer(Skin{}.visColors, VisLayout::shade(1)).makeImage(), {79, 5});
    expectSame(bare, std::move(expected).image());
}

TEST(MainWindowRenderer, LeavesAGapForTheColonOfTheMiniClock)
{
    const Skin skin = noisySkin();
    Collage expected(skin, {30, 6});
    expected.add(textImage(skin, "-"), {1, 0});
    expected.add(textImage(skin, "1"), {7, 0});
    expected.add(textImage(skin, "2"), {12, 0});
    expected.add(textImage(skin, "4"), {25, 0});
    const auto image = miniTimeImage(skin, {"-", "1", "2", "", "4x"});
    ASSERT_TRUE(image);
    expectSame(*image, std::move(expected).image());
    EXPECT_FALSE(miniTimeImage(Skin{}, MiniTime::blank()));
}
