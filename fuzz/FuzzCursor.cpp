#include "SkinKit/Cursors/CursorPicture.h"
#include "SkinKit/Cursors/SkinCursors.h"
#include "SkinKit/Platform/Check.h"

using namespace SkinKit;

namespace {

void checkStatic(const StaticCursor& cursor)
{
    check(!cursor.images.empty(), "a cursor without pictures");
    for (const auto& [image, hotSpot, bitCount] : cursor.images) {
        const Rect whole{0, 0, image.width(), image.height()};
        check(image.width() <= CursorPicture::maxSide && image.height() <= CursorPicture::maxSide,
              "a picture beyond the limit");
        check(contains(whole, hotSpot), "a hot spot outside its picture");
        check(bitCount > 0, "a picture without depth");
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto cursor = SkinCursors::decode({data, size});
    if (!cursor)
        return 0;
    if (const auto* single = std::get_if<StaticCursor>(&*cursor)) {
        checkStatic(*single);
        return 0;
    }
    const auto& animated = std::get<AnimatedCursor>(*cursor);
    for (const auto& frame : animated.frames)
        checkStatic(frame);
    check(!animated.steps.empty() && animated.defaultJiffies > 0, "an animation without steps");
    for (const auto& step : animated.steps) {
        check(step.frame >= 0 && step.frame < std::ssize(animated.frames), "a step without frame");
        check(step.jiffies > 0, "a step without duration");
    }
    return 0;
}
