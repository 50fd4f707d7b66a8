#include "SkinKit/Windows/VisRenderer.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <string>

using namespace SkinKit;

namespace {

// The red of a colour is its number.
VisRenderer numbered(VisLayout layout, int count = 24)
{
    std::vector<RGBColor> colors;
    for (int i = 0; i < count; ++i)
        colors.push_back({static_cast<std::uint8_t>(i), 100, 200});
    return {colors, layout};
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

}

// clang-format off
TEST(VisRenderer, PaintsTheBackgroundOfEachLayout)
{
    const VisRenderer main = numbered(VisLayout::main());
    EXPECT_EQ(column(main, 0), dotted);
    EXPECT_EQ(column(main, 75), plain);
    const VisRenderer shade = numbered(VisLayout::shade(-3)); // half of it is below the clock
    EXPECT_EQ(column(shade, 37), "aaaaa");
    EXPECT_EQ(column(shade, 38), "-----");
    EXPECT_EQ(column(numbered(VisLayout::shade(9)), 151), "aaaaaaaaaa");
    EXPECT_EQ(main.makeImage().pixel({0, 1}), packPixel(1, 100, 200));
    EXPECT_EQ(numbered(VisLayout::main(), 2).packed()[23], 0xFF0164C8U); // filled up
    EXPECT_EQ(numbered(VisLayout::main(), 0).packed()[0], 0xFF000000U);
}

TEST(VisRenderer, ColoursBarsByRowAndMarksPeaks)
{
    const std::tuple<int, int, int, std::string> rows[] = {
        // height    peak     pushed   an odd column
        {-5,         -5,      0,       plain},
        {3,          0,       0,       "aaaaaaaaaaaaapqr"},
        {INT_MAX,    INT_MAX, 0,       "cdefghijklmnopqr"},
        {16,         0,       2,       "abcdefghijklmnop"},
        {16,         0,       INT_MIN, std::string(16, 'x')},
        {2,          1,       0,       "aaaaaaaaaaaaaaqx"}, // a peak hides its bar
        {0,          16,      0,       "xaaaaaaaaaaaaaaa"},
        {0,          17,      0,       plain},
    };
    for (const auto& [height, peak, pushDown, expected] : rows) {
        VisRenderer vis = numbered(VisLayout::main());
        vis.drawBars(std::vector(99, height), std::vector(99, peak), pushDown);
        EXPECT_EQ(column(vis, 73), expected) << height << ", " << peak << ", " << pushDown;
        EXPECT_EQ(column(vis, 71) + column(vis, 75), plain + plain); // every fourth is a gap
    }
}

TEST(VisRenderer, TracesSamplesBrightestAtTheCentre)
{
    const std::tuple<float, std::size_t, char> rows[] = {
        {0, 7, 's'}, {1 / 16.F, 8, 't'}, {3 / 16.F, 10, 'u'}, {5 / 16.F, 12, 'v'},
        {7 / 16.F, 14, 'w'}, {1, 15, 'w'}, {-1 / 16.F, 6, 's'}, {-2 / 16.F, 5, 't'},
        {-4 / 16.F, 3, 'u'}, {-6 / 16.F, 1, 'v'}, {-1, 0, 'v'}, {0.5F / 16, 8, 't'},
        {-0.5F / 16, 6, 's'}, {NAN, 0, 'v'}, {1e30F, 15, 'w'},
    };
    for (const auto& [sample, row, color] : rows)
        for (const int pushDown : {0, 2}) {
            VisRenderer vis = numbered(VisLayout::main());
            vis.drawOscilloscope(std::vector{sample}, pushDown);
            std::string expected = dotted + "  "; // what is pushed out below
            expected[row + static_cast<std::size_t>(pushDown)] = color;
            EXPECT_EQ(column(vis, 0), expected.substr(0, 16)) << sample << ", pushed " << pushDown;
        }
}

TEST(VisRenderer, JoinsTheTraceOfEachColumnToTheOneBefore)
{
    // Rows 7, 10, 10, 4, 3: a fall does not repeat the row before, a rise does.
    VisRenderer vis = numbered(VisLayout::main());
    vis.drawOscilloscope(std::vector{0.0F, 3 / 16.0F, 3 / 16.0F, -3 / 16.0F, -4 / 16.0F}, 0);
    const std::string expected[] = {"aaaaaaaauuuaaaaa", "abababababubabab", "aaaatttttttaaaaa",
                                    "abauubababababab", plain};
    for (int x = 1; x <= 5; ++x)
        EXPECT_EQ(column(vis, x), expected[x - 1]);
}

TEST(VisRenderer, ShrinksBarsAndTraceForTheShadedWindow)
{
    const std::tuple<int, std::string, std::vector<std::size_t>> rows[] = {
        // scale  bar       rows of samples -1, -1/4, 0, 1/4, 1
        {1, "eilor",      {0, 1, 2, 3, 4}},
        {2, "efhiklnoqr", {0, 2, 4, 7, 9}},
    };
    for (const auto& [displayScale, bar, traced] : rows) {
        VisRenderer vis = numbered(VisLayout::shade(displayScale));
        vis.drawBars(std::vector(200, 99), {}, 2);
        EXPECT_EQ(column(vis, vis.barColumns() - 1), bar);
        const float samples[] = {-1, -0.25F, 0, 0.25F, 1};
        for (std::size_t i = 0; i < traced.size(); ++i) {
            vis.clear();
            vis.drawOscilloscope(std::span(samples).subspan(i, 1), 0);
            EXPECT_EQ(column(vis, 0).find('s'), traced[i]) << displayScale << ", " << samples[i];
        }
    }
}
// clang-format on
