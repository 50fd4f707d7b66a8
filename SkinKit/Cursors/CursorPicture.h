#pragma once

#include "SkinKit/Cursors/Cursor.h"
#include "SkinKit/Platform/Bytes.h"

#include <algorithm>
#include <cstdint>
#include <optional>

// Decodes one picture of a cursor file: a PNG file, or a bitmap without file header whose colours a
// mask of one bit a pixel follows.
namespace SkinKit::CursorPicture {

// A directory has one byte for each side, so no well-formed cursor is larger.
inline constexpr int maxSide = 256;

// What all pictures of one file may cost together; each picture takes its share before it is
// decoded, and one that finds too little left counts as damaged. Without it a directory whose
// entries all point to the same bytes would turn a small file into gigabytes of pixels and minutes
// of work.
struct Budget {
    static constexpr std::int64_t pixelsOfFile = 4'194'304; // 64 pictures of the largest size

    std::int64_t pixels;
    std::int64_t pngBytes; // at most the file's: its pictures do not overlap

    explicit Budget(ByteView file, std::int64_t mostPixels = pixelsOfFile)
        : pixels(std::min(mostPixels, pixelsOfFile)), pngBytes(std::ssize(file))
    {
    }
};

// The picture with its hot spot in the middle, or nothing when it is damaged or too costly.
//
// A bitmap's height counts colours and mask, unless it is the `statedHeight` (by the directory; 0
// when unknown) and there are colours enough for all of it. A mask that is missing or cut short
// hides nothing where it is not there. Where alpha is present the mask has no say; 32-bit pixels
// whose alpha is zero throughout have none.
std::optional<CursorImage> decode(ByteView bytes, std::int64_t statedHeight, Budget& budget);

}
