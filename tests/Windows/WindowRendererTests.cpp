#include "SkinKit/Windows/Desktop/DesktopRenderer.h"
#include "SkinKit/Windows/WindowDrawing.h"
#include "tests/support/WindowChecks.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>

using namespace SkinKit;
using support::noisySkin;

namespace {

// One window in one state.
struct Window {
    std::string name;
    Size size;                         // in window pixels
    std::vector<std::string> sections; // of the region, that clip it
    std::function<std::optional<Size>(std::int64_t scale)> deviceSize;
    std::function<Image(const Skin&, int scale, Clip)> render;
    std::function<void(Canvas&, Point at, const Skin&, int scale, Clip)> draw;
};

void PrintTo(const Window& window, std::ostream* stream)
{
    *stream << window.name;
}

template <class Renderer>
Window window(std::string name, Size size, std::vector<std::string> sections,
              const typename Renderer::State& state)
{
    return {
        std::move(name),
        size,
        std::move(sections),
        [state](auto scale) { return Renderer::size(state, scale); },
        [state](const auto& skin, int scale, Clip clip) {
            return Renderer::render(skin, state, scale, clip);
        },
        [state](auto& canvas, Point at, const auto& skin, int scale, Clip clip) {
            Renderer::draw(canvas, at, skin, state, scale, clip);
        },
    };
}

// Without the visualizer, which alone looks different at larger scales.
DesktopState desktop(bool shaded)
{
    auto state = DesktopState::webampScreenshot();
    state.main.visualizer = MainWindowState::Off{};
    state.playlist.steps = {2, 1};
    state.main.shaded = state.equalizer.shaded = state.playlist.shaded = shaded;
    return state;
}

std::vector<Window> windows()
{
    const auto full = desktop(false);
    const auto shaded = desktop(true);
    using Main = MainWindowRenderer;
    using EQ = EQWindowRenderer;
    using Playlist = PlaylistWindowRenderer;
    return {
        window<Main>("Main", {275, 116}, {"normal"}, full.main),
        window<Main>("MainShaded", {275, 14}, {"windowshade"}, shaded.main),
        window<EQ>("Equalizer", {275, 116}, {"equalizer"}, full.equalizer),
        window<EQ>("EqualizerShaded", {275, 14}, {"equalizerws"}, shaded.equalizer),
        window<Playlist>("Playlist", {325, 145}, {}, full.playlist),
        window<Playlist>("PlaylistShaded", {325, 14}, {}, shaded.playlist),
        window<DesktopRenderer>("Desktop", {325, 377}, {"normal", "equalizer"}, full),
        window<DesktopRenderer>("DesktopShaded", {325, 42}, {"windowshade", "equalizerws"}, shaded),
    };
}

// A window that paints more than its rectangle.
struct Spilling {
    struct State {};

    static Size size(const State&) { return {4, 3}; }
    static const SkinRegion::Polygons* outline(const SkinRegion&, const State&) { return nullptr; }
    static void paint(const SpriteDrawer& drawer, const State&, int, Clip)
    {
        drawer.context.fill({-9, -9, 99, 99}, {1, 2, 3});
    }
};

class AnyWindow : public testing::TestWithParam<Window> {
protected:
    Skin skin_ = noisySkin();
    const Window& window_ = GetParam();
    Image whole_ = window_.render(skin_, 1, Clip::none);
};

INSTANTIATE_TEST_SUITE_P(, AnyWindow, testing::ValuesIn(windows()),
                         [](const auto& test) { return test.param.name; });

}

TEST_P(AnyWindow, HasASizeAsFarAsARasterHoldsIt)
{
    const auto [width, height] = window_.size;
    EXPECT_EQ(whole_.size(), window_.size);
    EXPECT_EQ(window_.deviceSize(INT64_MIN), window_.size);
    EXPECT_EQ(window_.deviceSize(3), (Size{3 * width, 3 * height}));
    EXPECT_EQ(window_.deviceSize(INT64_MAX), std::nullopt);
    EXPECT_DEATH(window_.render(skin_, INT_MAX, Clip::none), "raster");
}

TEST_P(AnyWindow, ReplicatesItsPixelsAtLargerScales)
{
    for (const int scale : {INT_MIN, 0, 2, 5}) {
        const int factor = std::max(scale, 1);
        Canvas expected({whole_.width() * factor, whole_.height() * factor});
        expected.scale(factor);
        expected.draw(whole_, Point{0, 0});
        EXPECT_EQ(window_.render(skin_, scale, Clip::none), expected.image());
    }
}

TEST_P(AnyWindow, IsDrawnOntoACanvasAndTouchesNothingElse)
{
    const Rect ground{0, 0, 1000, 1200};
    Canvas canvas(ground.size());
    Canvas expected(ground.size());
    for (Canvas* each : {&canvas, &expected}) {
        each->fill(ground, {9, 9, 9});
        each->scale(2);
        each->translate({5, 7});
    }
    window_.draw(canvas, {20, 30}, skin_, -3, Clip::none);
    expected.draw(whole_, Point{20, 30});
    for (Canvas* each : {&canvas, &expected}) // in the same state as before
        each->fill({400, 0, 9, 9}, {1, 2, 3});
    EXPECT_EQ(canvas.image(), expected.image());
}

TEST_P(AnyWindow, IsClippedToItsOwnSectionOfTheRegionWhenAsked)
{
    for (const char* section : {"normal", "windowshade", "equalizer", "equalizerws", "playlist"})
        skin_.region.sections[section] = {};
    EXPECT_EQ(window_.render(skin_, 1, Clip::none), whole_);
    for (const auto& section : window_.sections)
        skin_.region.sections.erase(section);
    EXPECT_EQ(window_.render(skin_, 1, Clip::toRegion), whole_);
    if (window_.sections.size() != 1) // the desktop clips each window by itself
        return;
    auto& section = skin_.region.sections[window_.sections[0]];
    section = {
        {{3, 0}, {270, 2}, {100, 110}}
    };
    const Image large = window_.render(skin_, 2, Clip::none);
    const Image cut = window_.render(skin_, 2, Clip::toRegion);
    const auto mask = SkinRegion::maskImage(section, window_.size, 2);
    for (int y = 0; y < cut.height(); ++y)
        for (int x = 0; x < cut.width(); ++x)
            ASSERT_EQ(cut.pixel({x, y}), mask->pixel({x, y}) == transparentPixel
                                             ? transparentPixel
                                             : large.pixel({x, y}))
                << x << ", " << y;

    section = {}; // no polygons: nothing is inside
    EXPECT_EQ(window_.render(skin_, 1, Clip::toRegion),
              Image(PixelBuffer::transparent(window_.size), Image::Alpha::any));
}

TEST(WindowRenderer, CutsWhatAWindowPaintsOutsideItself)
{
    Canvas canvas({20, 20});
    Canvas expected({20, 20});
    WindowRenderer<Spilling>::draw(canvas, {5, 6}, Skin{}, {}, 2, Clip::none);
    expected.fill({5, 6, 8, 6}, {1, 2, 3});
    EXPECT_EQ(canvas.image(), expected.image());
}

TEST(WindowRenderer, RejectsAPlaylistThatNoRasterCanHold)
{
    DesktopState state;
    state.playlist.steps = {INT_MAX, INT_MAX};
    EXPECT_EQ(DesktopRenderer::size(state, 1), std::nullopt);
    EXPECT_EQ(PlaylistWindowRenderer::size(state.playlist, 1), std::nullopt);
    Canvas canvas({10, 10});
    EXPECT_DEATH(DesktopRenderer::draw(canvas, {0, 0}, {}, state, 1, Clip::none), "raster");
}
