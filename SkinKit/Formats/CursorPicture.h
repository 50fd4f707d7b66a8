#pragma once

#include "SkinKit/Base/Bytes.h"
#include "SkinKit/Base/LoadMeter.h"
#include "SkinKit/Formats/Cursor.h"

#include <cstdint>
#include <optional>

// Decodes one picture of a cursor file: a PNG file, or a bitmap without file header whose colours a
// mask of one bit a pixel follows.
namespace SkinKit::CursorPicture {

// A directory has one byte for each side, so no well-formed cursor is larger.
inline constexpr int maxSide = 256;

// The picture with its hot spot in the middle, or nothing when it is damaged or finds too little
// memory or time left. A directory whose entries all point to the same bytes turns a small file
// into any number of pictures.
//
// A bitmap's height counts colours and mask, unless it is the `statedHeight` (by the directory; 0
// when unknown) and there are colours enough for all of it. A mask that is missing or cut short
// hides nothing where it is not there. Where alpha is present the mask has no say; 32-bit pixels
// whose alpha is zero throughout have none.
std::optional<CursorImage> decode(ByteView bytes, std::int64_t statedHeight, LoadMeter& meter);

}
