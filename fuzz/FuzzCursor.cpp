#include "SkinKit/Formats/CursorPicture.h"
#include "SkinKit/Formats/SkinCursors.h"
#include "fuzz/Fuzzing.h"
#include "fuzz/PNGChecksums.h"

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

// What all pictures of one file cost together.
std::int64_t pixelsOf(const StaticCursor& cursor)
{
    std::int64_t pixels = 0;
    for (const auto& picture : cursor.images)
        pixels += std::int64_t{picture.image.width()} * picture.image.height();
    return pixels;
}

std::int64_t pixelsOf(const AnimatedCursor& cursor)
{
    std::int64_t pixels = 0;
    for (const auto& frame : cursor.frames)
        pixels += pixelsOf(frame);
    return pixels;
}

}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ByteBuffer file = fuzzing::withPNGChecksums({data, size});
    const auto cursor = SkinCursors::decode(file);
    fuzzing::require(SkinCursors::decode(file) == cursor);
    if (!cursor)
        return 0;
    std::visit([](const auto& kind) { requireSound(kind); }, *cursor);
    const auto pixels = std::visit([](const auto& kind) { return pixelsOf(kind); }, *cursor);
    fuzzing::require(pixels * std::int64_t{sizeof(Pixel)} <= LoadMeter::defaultMemory);
    // Many large pictures show nothing that few small ones do not, only more slowly.
    constexpr std::int64_t largeEnough = 16'384;
    return pixels > largeEnough ? fuzzing::notKept : 0;
}
