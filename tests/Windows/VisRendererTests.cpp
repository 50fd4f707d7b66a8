#include "SkinKit/Windows/VisRenderer.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <string>

using namespace SkinKit;

namespace {

// Colour i is recognised by its red.
std::vector<RGBColor> numberedColors(int count)
{
    std::vector<RGBColor> colors;
    for (int i = 0; i < count; ++i)
        colors.push_back({static_cast<std::uint8_t>(i), 100, 200});
    return colors;
}

// A column from the top, a letter a pixel: "a" is colour 0; "-" is transparent.
std::string column(const VisRenderer& vis, int x)
{
    std::string letters;
    for (int y = 0; y < vis.height(); ++y) {
        const auto word = vis.pixels()[static_cast<std::size_t>(y * vis.width() + x)];
        letters += word == 0 ? '-' : static_cast<char>('a' + (word >> 16 & 0xFF));
    }
    return letters;
}

const std::string dotted = "abababababababab"; // an even column of the main background
const std::string plain(16, 'a');              // an odd one

VisRenderer mainVis()
{
    return {numberedColors(24), VisLayout::main()};
}

}

TEST(VisRenderer, PaintsTheBackgroundOfEachLayout)
{
    const std::tuple<VisLayout, Size, int, int, int, int> rows[] = {
        {VisLayout::main(),    {76, 16},  75, 15, 76,  1},
        {VisLayout::shade(1),  {76, 5},   37, 5,  38,  1},
        {VisLayout::shade(-3), {76, 5},   37, 5,  38,  1},
        {VisLayout::shade(2),  {152, 10}, 75, 10, 152, 2},
        {VisLayout::shade(9),  {152, 10}, 75, 10, 152, 2},
    };
    for (const auto& [layout, size, columns, maxHeight, backgroundWidth, pointScale] : rows) {
        const VisRenderer vis(numberedColors(24), layout);
        EXPECT_EQ(layout.imageSize(), size);
        EXPECT_EQ(vis.barColumns(), columns);
        EXPECT_EQ(layout.maxHeight(), maxHeight);
        EXPECT_EQ(layout.pointScale(), pointScale);
        for (int x = 0; x < size.width; ++x) {
            const std::string blank(static_cast<std::size_t>(size.height),
                                    x < backgroundWidth ? 'a' : '-');
            EXPECT_EQ(column(vis, x), layout.isMain() && x % 2 == 0 ? dotted : blank) << x;
        }
        EXPECT_EQ(vis.makeImage().isOpaque(), backgroundWidth == size.width);
    }
}

TEST(VisRenderer, FillsAShortColourListUpAndCutsALongOne)
{
    const auto packed = [](int count) {
        return VisRenderer(numberedColors(count), VisLayout::main()).packed();
    };
    EXPECT_EQ(packed(30)[23], 0xFF1764C8U);
    EXPECT_EQ(packed(2)[1], 0xFF0164C8U);
    EXPECT_EQ(packed(2)[23], 0xFF0164C8U);
    EXPECT_EQ(packed(0)[0], 0xFF000000U);
}

TEST(VisRenderer, DrawsBarsThreeColumnsWideWithAGap)
{
    std::vector<int> heights(100, 16);
    VisRenderer vis = mainVis();
    vis.drawBars(heights, {}, 0);
    for (int x = 0; x < 76; ++x)
        EXPECT_EQ(column(vis, x), x == 75 || x % 4 == 3 ? plain : "cdefghijklmnopqr") << x;
    vis.clear();
    EXPECT_EQ(column(vis, 0), dotted);
}

TEST(VisRenderer, ColoursBarsByRowAndMarksPeaks)
{
    struct Row {
        int height, peak, pushDown;
        std::string expected; // of an odd column
    };
    const Row rows[] = {
        {0, 0, 0, plain},
        {-5, -5, 0, plain},
        {3, 0, 0, "aaaaaaaaaaaaapqr"},
        {100, 0, 0, "cdefghijklmnopqr"},
        {INT_MAX, INT_MAX, 0, "cdefghijklmnopqr"},
        {16, 0, 2, "abcdefghijklmnop"},
        {16, 0, 30, plain},
        {2, 0, -30, "aaaaaaaaaaaaaaxx"},
        {16, 0, INT_MIN, std::string(16, 'x')},
        {2, 1, 0, "aaaaaaaaaaaaaaqx"}, // a peak lies over its bar
        {0, 16, 0, "xaaaaaaaaaaaaaaa"},
        {0, 17, 0, plain},
        {0, INT_MIN, 0, plain},
    };
    for (const auto& [height, peak, pushDown, expected] : rows) {
        VisRenderer vis = mainVis();
        vis.drawBars(std::vector{0, height}, std::vector{0, peak}, pushDown);
        EXPECT_EQ(column(vis, 1), expected) << height << ", " << peak << ", " << pushDown;
    }
    // Peaks without heights are not drawn, heights without peaks are.
    VisRenderer vis = mainVis();
    vis.drawBars(std::vector{0, 1}, std::vector{5, 0, 5}, 0);
    EXPECT_EQ(column(vis, 0).find('x'), 11U);
    EXPECT_EQ(column(vis, 2), dotted);
}

TEST(VisRenderer, TracesSamplesBrightestAtTheCentre)
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const std::tuple<float, int, char> rows[] = {
        {0,             7,  's'},
        {1.0F / 16,     8,  't'},
        {3.0F / 16,     10, 'u'},
        {5.0F / 16,     12, 'v'},
        {7.0F / 16,     14, 'w'},
        {0.5F,          15, 'w'},
        {1,             15, 'w'},
        {-1.0F / 16,    6,  's'},
        {-2.0F / 16,    5,  't'},
        {-4.0F / 16,    3,  'u'},
        {-6.0F / 16,    1,  'v'},
        {-1,            0,  'v'},
        {0.5F / 16,     8,  't'}, // halves away from zero
        {-0.5F / 16,    6,  's'},
        {infinity,      15, 'w'},
        {-infinity,     0,  'v'},
        {std::nanf(""), 0,  'v'},
        {1e30F,         15, 'w'},
    };
    for (const auto& [sample, row, color] : rows)
        for (const int pushDown : {0, 2}) {
            VisRenderer vis = mainVis();
            vis.drawOscilloscope(std::vector{sample}, pushDown);
            std::string expected = dotted;
            if (row + pushDown < 16)
                expected[static_cast<std::size_t>(row + pushDown)] = color;
            EXPECT_EQ(column(vis, 0), expected) << sample << ", pushed " << pushDown;
        }
}

TEST(VisRenderer, JoinsTheTraceOfEachColumnToTheOneBefore)
{
    // Rows 7, 10, 10, 4, 3: a fall does not repeat the row before, a rise does.
    VisRenderer vis = mainVis();
    vis.drawOscilloscope(std::vector{0.0F, 3 / 16.0F, 3 / 16.0F, -3 / 16.0F, -4 / 16.0F}, 0);
    EXPECT_EQ(column(vis, 1), "aaaaaaaauuuaaaaa");
    EXPECT_EQ(column(vis, 2), "abababababubabab");
    EXPECT_EQ(column(vis, 3), "aaaatttttttaaaaa");
    EXPECT_EQ(column(vis, 4), "abauubababababab");
    EXPECT_EQ(column(vis, 5), plain);

    VisRenderer full = mainVis();
    full.drawOscilloscope(std::vector(100, 0.0F), INT_MAX);
    full.drawOscilloscope(std::vector(100, 0.0F), INT_MIN);
    EXPECT_EQ(column(full, 0), dotted);
    full.drawOscilloscope(std::vector(100, 0.0F), 0);
    EXPECT_EQ(column(full, 74)[7], 's');
    EXPECT_EQ(column(full, 75), plain);
}

TEST(VisRenderer, ShrinksBarsAndTraceForTheShadedWindow)
{
    struct Row {
        int displayScale;
        std::string bar;
        std::vector<std::size_t> rows; // of samples -1, -1/4, 0, 1/4, 1
    };
    const Row rows[] = {
        {1, "eilor",      {0, 1, 2, 3, 4}},
        {2, "efhiklnoqr", {0, 2, 4, 7, 9}},
    };
    for (const auto& [displayScale, bar, traced] : rows) {
        VisRenderer vis(numberedColors(24), VisLayout::shade(displayScale));
        vis.drawBars(std::vector(200, 99), {}, 2);
        EXPECT_EQ(column(vis, 0), bar);
        EXPECT_EQ(column(vis, 3), std::string(bar.size(), 'a'));
        EXPECT_EQ(column(vis, vis.barColumns() - 1), bar);
        const float samples[] = {-1, -0.25F, 0, 0.25F, 1};
        for (std::size_t i = 0; i < traced.size(); ++i) {
            vis.clear();
            vis.drawOscilloscope(std::span(samples).subspan(i, 1), 0);
            EXPECT_EQ(column(vis, 0).find('s'), traced[i]) << displayScale << ", " << samples[i];
            EXPECT_EQ(std::ranges::count(column(vis, 0), 's'), 1);
        }
    }
}

TEST(VisRenderer, HandsItsPixelsOnAsAnImage)
{
    const Image image = mainVis().makeImage();
    EXPECT_EQ(image.size(), (Size{76, 16}));
    EXPECT_EQ(image.pixel({0, 0}), packPixel(0, 100, 200));
    EXPECT_EQ(image.pixel({0, 1}), packPixel(1, 100, 200));
    const Image shade = VisRenderer(numberedColors(24), VisLayout::shade(1)).makeImage();
    EXPECT_EQ(shade.pixel({38, 0}), transparentPixel);
}
