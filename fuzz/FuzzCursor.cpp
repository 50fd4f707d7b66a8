#include "SkinKit/Formats/CursorPicture.h"
#include "SkinKit/Formats/SkinCursors.h"
#include "fuzz/Fuzzing.h"

namespace {

using namespace SkinKit;

// Checks all images and counts their pixels.
std::int64_t pixelsOf(const StaticCursor& cursor)
{
    fuzzing::require(!cursor.images.empty());
    std::int64_t pixels = 0;
    for (const auto& [image, hotSpot, bitCount] : cursor.images) {
        fuzzing::require(image.width() <= CursorPicture::maxSide &&
                         image.height() <= CursorPicture::maxSide && bitCount > 0 &&
                         contains(Rect{0, 0, image.width(), image.height()}, hotSpot));
        fuzzing::requireSound(image);
        pixels += std::int64_t{image.width()} * image.height();
    }
    return pixels;
}

std::int64_t pixelsOf(const AnimatedCursor& cursor)
{
    fuzzing::require(!cursor.steps.empty() && cursor.defaultJiffies >= 1);
    for (const auto& [frame, jiffies] : cursor.steps)
        fuzzing::require(frame >= 0 && frame < std::ssize(cursor.frames) && jiffies >= 1);
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
    const auto pixels = std::visit([](const auto& kind) { return pixelsOf(kind); }, *cursor);
    fuzzing::require(pixels * std::int64_t{sizeof(Pixel)} <= LoadMeter::defaultMemory);
    // Many large images show nothing that few small ones do not, only more slowly.
    constexpr std::int64_t largeEnough = 16'384;
    return pixels > largeEnough ? fuzzing::notKept : 0;
}
