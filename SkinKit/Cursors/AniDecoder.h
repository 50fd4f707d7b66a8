#pragma once

#include "SkinKit/Cursors/Cursor.h"
#include "SkinKit/Cursors/CursorPicture.h"
#include "SkinKit/Platform/Bytes.h"

#include <optional>

// Decodes an animated cursor file.
namespace SkinKit::AniDecoder {

// The animation, or nothing when its header is missing or no step is left that shows something:
// frames that can't be decoded are left out, and so are the steps that would show them or a frame
// that was never there. Frames are cursor files or icon files, or else single pictures with their
// hot spot in the middle; what they are is told by their bytes, not by the header. A step without
// a duration, or with one of 0, lasts as long as the header says, and that is 1 at the least. Steps
// after the 65,536th are left out.
std::optional<AnimatedCursor> decode(ByteView bytes);
// The same at the expense of more than this file.
std::optional<AnimatedCursor> decode(ByteView bytes, CursorPicture::Budget& budget);

}
