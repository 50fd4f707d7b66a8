#pragma once

#include "SkinKit/Base/Bytes.h"
#include "SkinKit/Base/LoadMeter.h"
#include "SkinKit/Formats/Cursor.h"

#include <optional>

// Decodes an animated cursor file.
namespace SkinKit::AniDecoder {

// The animation, or nothing when its header is missing or no step is left that shows something:
// frames that can't be decoded are left out, and so are the steps that would show them or a frame
// that was never there. Frames are cursor files or icon files, or else single pictures with their
// hot spot in the middle; what they are is told by their bytes, not by the header. A step without
// a duration, or with one of 0, lasts as long as the header says, and that is 1 at the least.
// Nothing when the meter has too little memory left for its frames' places and steps.
std::optional<AnimatedCursor> decode(ByteView bytes, LoadMeter& meter);
std::optional<AnimatedCursor> decode(ByteView bytes);

}
