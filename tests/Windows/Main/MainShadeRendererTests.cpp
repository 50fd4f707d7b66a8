#include "SkinKit/Windows/Main/MainShadeRenderer.h"

#include "SkinKit/SkinParser.h"
#include "SkinKit/Text/TextRenderer.h"
#include "SkinKit/Windows/Main/MiniTime.h"
#include "SkinKit/Windows/VisRenderer.h"
#include "tests/support/Collage.h"
#include "tests/support/Drawing.h"
#include "tests/support/Golden.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace SkinKit;
using MainShadeRenderer::Clip;
using support::Collage;
using support::expectSame;
using support::noisySkin;

namespace {

constexpr Size window{275, 14};

MainWindowState playing()
{
    return MainWindowState::webampScreenshot();
}

// Expects the picture to be another with one sprite over it.
void expectAdded(const Image& image, const Image& before, const Collage::Piece& piece)
{
    const Skin skin = noisySkin();
    Collage expected(skin, window);
    expected.add(before, {0, 0});
    expected.add(piece);
    expectSame(image, std::move(expected).image());
}

}

TEST(MainShadeRenderer, PlacesEveryPartOfTheWindow)
{
    const Skin skin = noisySkin();
    const auto state = playing();
    Collage expected(skin, window);
    expected.add({
        "MAIN_SHADE_BACKGROUND_SELECTED", {0, 0}
    });
    expected.add(VisRenderer(skin.visColors, VisLayout::shade(1)).makeImage(), {79, 5});
    expected.add(miniTimeImage(skin, {" ", "0", "0", "0", "3"}), {127, 4});
    expected.add({
        {"MAIN_SHADE_POSITION_BACKGROUND", {226, 4}},
        {"MAIN_SHADE_POSITION_THUMB",      {234, 4}}  // 0.6 of 14 pixels
    });
    expectSame(MainShadeRenderer::render(skin, state, 1, Clip::none), std::move(expected).image());
}

TEST(MainShadeRenderer, ShowsAStoppedPlayerOutOfFocus)
{
    const Skin skin = noisySkin();
    auto state = MainWindowState::idle();
    state.focused = false;
    Collage expected(skin, window);
    expected.add({
        "MAIN_SHADE_BACKGROUND", {0, 0}
    });
    expected.add(miniTimeImage(skin, MiniTime::blank()), {127, 4});
    expected.add({
        "MAIN_SHADE_POSITION_BACKGROUND", {226, 4}
    });
    expectSame(MainShadeRenderer::render(skin, state, 1, Clip::none), std::move(expected).image());
}

TEST(MainShadeRenderer, ChoosesTheThumbByThePosition)
{
    const Skin skin = noisySkin();
    const std::tuple<double, std::string_view, int> rows[] = {
        {-1,   "MAIN_SHADE_POSITION_THUMB_LEFT",  226},
        {0.33, "MAIN_SHADE_POSITION_THUMB_LEFT",  231},
        {0.34, "MAIN_SHADE_POSITION_THUMB",       231},
        {0.66, "MAIN_SHADE_POSITION_THUMB_RIGHT", 235},
        {2,    "MAIN_SHADE_POSITION_THUMB_RIGHT", 240},
    };
    auto state = MainWindowState::idle();
    const Image without = MainShadeRenderer::render(skin, state, 1, Clip::none);
    for (const auto& [position, thumb, x] : rows) {
        state.position = position;
        expectAdded(MainShadeRenderer::render(skin, state, 1, Clip::none), without,
                    {
                        thumb, {x, 4}
        });
    }
}

TEST(MainShadeRenderer, ShowsTheTitleButtonThatIsHeldDown)
{
    using MainShadeRenderer::TitleButton;
    const Skin skin = noisySkin();
    const std::tuple<TitleButton, std::string_view, int> rows[] = {
        {TitleButton::options,  "MAIN_OPTIONS_BUTTON_DEPRESSED",        6  },
        {TitleButton::minimize, "MAIN_MINIMIZE_BUTTON_DEPRESSED",       244},
        {TitleButton::shade,    "MAIN_SHADE_BUTTON_SELECTED_DEPRESSED", 254},
        {TitleButton::close,    "MAIN_CLOSE_BUTTON_DEPRESSED",          264},
    };
    const Image released = MainShadeRenderer::render(skin, playing(), 1, Clip::none);
    for (const auto& [button, sprite, x] : rows)
        expectAdded(MainShadeRenderer::render(skin, playing(), 1, Clip::none, button), released,
                    {
                        sprite, {x, 3}
        });
}

// A gauge of one bar and one peak, told from the pixels around it by the colours.
TEST(MainShadeRenderer, DrawsTheVisualizerFinerAboveScale1)
{
    const Skin skin = noisySkin();
    auto state = playing();
    state.visualizer = MainWindowState::Spectrum{{3}, {5}};
    const auto image = [&](int scale) {
        return MainShadeRenderer::render(skin, state, scale, Clip::none);
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

TEST(MainShadeRenderer, LeavesTheClocksColonFreeOfTheVisualizer)
{
    const Skin skin = noisySkin();
    const auto background = skin.image("MAIN_SHADE_BACKGROUND_SELECTED");
    for (const int scale : {1, 2, 3}) {
        const auto image = MainShadeRenderer::render(skin, playing(), scale, Clip::none);
        for (int y = 0; y < 14; ++y)
            EXPECT_EQ(image.pixel({145 * scale, y * scale}), background->pixel({145, y})) << y;
    }
}

TEST(MainShadeRenderer, DrawsTheOscilloscopeToo)
{
    const Skin skin = noisySkin();
    auto state = playing();
    state.visualizer = MainWindowState::Oscilloscope{std::vector<float>(37, 0.0F)};
    const auto image = MainShadeRenderer::render(skin, state, 1, Clip::none);
    for (int x = 0; x < 37; ++x)
        EXPECT_EQ(image.pixel({79 + x, 7}), opaquePixel(skin.visColors[18])) << x;
}

TEST(MainShadeRenderer, ClipsToItsOwnSectionOfTheRegion)
{
    Skin skin = noisySkin();
    skin.region.sections["windowshade"] = {
        {{10, 0}, {275, 0}, {275, 14}, {10, 14}}
    };
    skin.region.sections["normal"] = {
        {{0, 0}, {1, 0}, {1, 1}, {0, 1}}
    };
    const auto whole = MainShadeRenderer::render(skin, playing(), 2, Clip::none);
    const auto cut = MainShadeRenderer::render(skin, playing(), 2, Clip::toRegion);
    EXPECT_EQ(alphaOf(cut.pixel({19, 5})), 0U);
    EXPECT_EQ(alphaOf(whole.pixel({19, 5})), 255U);
    EXPECT_EQ(cut.crop({20, 0, 530, 28}), whole.crop({20, 0, 530, 28}));
}

TEST(MainShadeRenderer, LeavesOutWhatTheSkinLacks)
{
    const auto bare =
        MainShadeRenderer::render(noisySkin({"TITLEBAR", "TEXT"}), playing(), 1, Clip::none);
    Collage expected(Skin{}, window);
    expected.add(VisRenderer(Skin{}.visColors, VisLayout::shade(1)).makeImage(), {79, 5});
    expectSame(bare, std::move(expected).image());
}

TEST(MainShadeRenderer, DrawsIntoACallersCanvasAtEveryScale)
{
    const Skin skin = noisySkin();
    const auto drawn = [&skin](int scale) {
        return MainShadeRenderer::render(skin, playing(), scale, Clip::none);
    };
    support::expectDrawsAt({7, 3}, drawn(2), [&](Canvas& canvas) {
        MainShadeRenderer::draw(canvas, {7, 3}, skin, playing(), 2, Clip::toRegion);
    });
    expectSame(drawn(-5), drawn(1));
    EXPECT_EQ(MainShadeRenderer::size(0), window);
    EXPECT_EQ(MainShadeRenderer::size(3), (Size{825, 42}));
    EXPECT_EQ(MainShadeRenderer::size(INT64_MAX), std::nullopt);
}

// What no rule alone would catch.
TEST(MainShadeRenderer, LooksAsItDidOnASample)
{
    const auto skin = SkinParser::parse(std::filesystem::path(SKINKIT_SOURCE_FOLDER) /
                                        "examples/skins/lagoon.wsz");
    ASSERT_TRUE(skin);
    auto state = playing();
    state.status.timeMode = TimeMode::remaining;
    state.status.duration = 1234;
    MainWindowState::Spectrum spectrum;
    for (int x = 0; x < 75; ++x) {
        spectrum.heights.push_back(x / 4 * 7 % 11);
        spectrum.peaks.push_back(x / 4 * 7 % 11 + 1);
    }
    state.visualizer = spectrum;
    support::expectGolden(MainShadeRenderer::render(*skin, state, 2, Clip::toRegion),
                          "lagoon-shaded-2x");
}
