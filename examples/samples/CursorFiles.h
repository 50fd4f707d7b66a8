#pragma once

#include "SkinKit/Platform/Bytes.h"
#include "examples/samples/Painter.h"

#include <cstdint>
#include <span>

// Files of mouse pointers.
namespace samples {

struct Cursor {
    Image image;
    Point hotSpot;
};

// A static pointer of 1, 8 or 32 bits a pixel. Below 32 the picture's colours make the palette, and
// a mask says which pixels show; there must not be more of them than the depth allows.
SkinKit::ByteBuffer encodeCursor(const Cursor& cursor, int bitCount);

// One step of an animation: which frame, and for how many sixtieths of a second.
struct CursorStep {
    std::uint32_t frame;
    std::uint32_t duration;
};
SkinKit::ByteBuffer encodeAnimatedCursor(std::span<const Cursor> frames,
                                         std::span<const CursorStep> steps, int bitCount);

}
