#pragma once

#include "tests/differential/Random.h"
#include "tests/support/BMPWriter.h"

namespace differential {

// The bitmaps that cursors can hold have neither runs nor anything between palette and pixels.
enum class BMPKind { any, ofCursor };

// A bitmap file with short sides, any header, depth and compression, and random pixels. It has only
// what decoders must accept: colours outside the palette, runs past the end of a row, wrong pixel
// offsets.
support::BMPFile randomBMP(Random& random, BMPKind kind);

}
