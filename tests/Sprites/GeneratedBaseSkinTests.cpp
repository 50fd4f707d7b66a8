#include "SkinKit/Sprites/GeneratedBaseSkin.h"

#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Sprites/SkinSprites.h"
#include "tests/support/Golden.h"

#include <gtest/gtest.h>

using namespace SkinKit;

// All sheets one below the other; an empty row for one that others replace.
TEST(GeneratedBaseSkin, LooksAsItDid)
{
    Canvas canvas({350, 1347});
    int y = 0;
    for (const auto& sheet : SkinSprites::sheets()) {
        if (const auto image = GeneratedBaseSkin::sheet(sheet.name)) {
            EXPECT_EQ(image->size(), GeneratedBaseSkin::size(sheet.name)) << sheet.name;
            EXPECT_EQ(image->row(0).data(), GeneratedBaseSkin::sheet(sheet.name)->row(0).data())
                << "drawn once";
            canvas.draw(*image, Point{0, y});
            y += image->height();
        }
        ++y;
    }
    support::expectGolden(std::move(canvas).image(), "generated-sheets");
    EXPECT_FALSE(GeneratedBaseSkin::sheet("OTHER"));
    EXPECT_EQ(GeneratedBaseSkin::size("OTHER"), (Size{1, 1}));
}

// Each digit by the middle of its segments: top, upper left, upper right, middle, lower left, lower
// right, bottom.
TEST(GeneratedBaseSkin, LightsTheSegmentsOfEachDigit)
{
    constexpr int xs[] = {4, 1, 7, 4, 1, 7, 4};
    constexpr int ys[] = {0, 3, 3, 6, 9, 9, 12};
    constexpr std::string_view lit[] = {"###.###", "..#..#.", "#.###.#", "#.##.##", ".###.#.",
                                        "##.#.##", "##.####", "#.#..#.", "#######", "####.##"};
    const Image numbers = *GeneratedBaseSkin::sheet("NUMBERS");
    for (int digit = 0; digit < 10; ++digit)
        for (std::size_t i = 0; i < std::size(xs); ++i)
            EXPECT_EQ(numbers.pixel({9 * digit + xs[i], ys[i]}) == packPixel(0, 230, 0),
                      lit[digit][i] == '#')
                << digit << ", segment " << i;
}
