#pragma once

#include "SkinKit/Cursors/Cursor.h"
#include "SkinKit/Cursors/CursorPicture.h"
#include "SkinKit/Platform/Bytes.h"

#include <optional>

// Decodes a cursor or an icon file: a directory, and the pictures it points to.
namespace SkinKit::CurDecoder {

// All pictures that can be decoded, or nothing when none can. A cursor's hot spot is moved to the
// nearest pixel of its picture when it lies outside; an icon has its hot spot in the middle.
std::optional<StaticCursor> decode(ByteView bytes);
// The same at the expense of a file that `bytes` are a part of.
std::optional<StaticCursor> decode(ByteView bytes, CursorPicture::Budget& budget);

}
