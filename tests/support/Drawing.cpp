#include "tests/support/Drawing.h"

#include "tests/support/Collage.h"

#include <gtest/gtest.h>

namespace support {

using namespace SkinKit;

void expectMagnified(const Image& large, const Image& small, int scale)
{
    Canvas expected({small.width() * scale, small.height() * scale});
    expected.scale(scale);
    expected.draw(small, Point{0, 0});
    expectSame(large, expected.image());
}

void expectCut(const Image& cut, const Image& whole, const Image& mask)
{
    ASSERT_EQ(cut.size(), whole.size());
    for (int y = 0; y < whole.height(); ++y)
        for (int x = 0; x < whole.width(); ++x)
            ASSERT_EQ(cut.pixel({x, y}), mask.pixel({x, y}) == transparentPixel
                                             ? transparentPixel
                                             : whole.pixel({x, y}))
                << x << ", " << y;
}

void expectDrawsAt(Point place, const Image& window, const std::function<void(Canvas&)>& draw)
{
    const Size room{place.x + window.width() + 20, place.y + window.height() + 20};
    const Rect whole{0, 0, room.width, room.height};
    Canvas canvas(room);
    Canvas expected(room);
    for (Canvas* ground : {&canvas, &expected})
        ground->fill(whole, {9, 9, 9});
    draw(canvas);
    EXPECT_EQ(canvas.state().scale, 1);
    EXPECT_EQ(canvas.state().originX, 0);
    EXPECT_EQ(canvas.state().originY, 0);
    EXPECT_EQ(canvas.state().clip, whole);
    expected.draw(window, place);
    expectSame(canvas.image(), expected.image());
}

}
