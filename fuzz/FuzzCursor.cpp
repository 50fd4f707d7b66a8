#include "SkinKit/Cursors/CursorPicture.h"
#include "SkinKit/Cursors/SkinCursors.h"
#include "fuzz/Fuzzing.h"

#include <algorithm>

namespace {

using namespace SkinKit;

void requireSound(const CursorImage& picture)
{
    const Image& image = picture.image;
    fuzzing::require(image.width() <= CursorPicture::maxSide &&
                     image.height() <= CursorPicture::maxSide);
    fuzzing::require(contains(Rect{0, 0, image.width(), image.height()}, picture.hotSpot));
    fuzzing::require(picture.bitCount > 0);
    for (int y = 0; y < image.height(); ++y)
        for (const Pixel pixel : image.row(y)) {
            fuzzing::require(alphaOf(pixel) == 255 || !image.isOpaque());
            fuzzing::require(std::max({redOf(pixel), greenOf(pixel), blueOf(pixel)}) <=
                             alphaOf(pixel));
        }
}

void requireSound(const StaticCursor& cursor)
{
    fuzzing::require(!cursor.images.empty());
    for (const auto& picture : cursor.images)
        requireSound(picture);
}

void requireSound(const AnimatedCursor& cursor)
{
    for (const auto& frame : cursor.frames)
        requireSound(frame);
    fuzzing::require(!cursor.steps.empty() && cursor.defaultJiffies >= 1);
    for (const auto& step : cursor.steps)
        fuzzing::require(step.frame >= 0 && step.frame < std::ssize(cursor.frames) &&
                         step.jiffies >= 1);
}

}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (const auto cursor = SkinCursors::decode({data, size}))
        std::visit([](const auto& kind) { requireSound(kind); }, *cursor);
    return 0;
}
