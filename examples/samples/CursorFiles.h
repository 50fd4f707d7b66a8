#pragma once

#include "SkinKit/Base/Bytes.h"
#include "examples/samples/Painter.h"

#include <cstdint>
#include <span>

// Files of mouse pointers.
namespace samples {

struct Pointer {
    Image image;
    Point hotSpot;
};

// A static pointer of 1, 8 or 32 bits a pixel. Below 32 a mask says which pixels show; there must
// not be more colours than the depth allows, black among them.
SkinKit::ByteBuffer encodePointer(const Pointer& pointer, int bitCount);

// One step of an animation: which frame, and for how many sixtieths of a second.
struct PointerStep {
    std::uint32_t frame;
    std::uint32_t duration;
};
SkinKit::ByteBuffer encodeMovingPointer(std::span<const Pointer> frames,
                                        std::span<const PointerStep> steps, int bitCount);

}
