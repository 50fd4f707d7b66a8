#pragma once

#include "SkinKit/Base/Bytes.h"
#include "SkinKit/Base/LoadMeter.h"
#include "SkinKit/Formats/Cursor.h"

#include <optional>

// Decodes a cursor or an icon file: a directory, and the pictures it points to.
namespace SkinKit::CurDecoder {

// All pictures that can be decoded, or nothing when none can. A cursor's hot spot is moved to the
// nearest pixel of its picture when it lies outside; an icon has its hot spot in the middle.
std::optional<StaticCursor> decode(ByteView bytes, LoadMeter& meter);
std::optional<StaticCursor> decode(ByteView bytes);

}
