#pragma once

#include "tests/differential/Random.h"

#include <cstdint>

namespace differential {

// A bitmap file of small sides with a header of any kind, in every depth and compression, its
// pixels noise. Nothing is wrong with it but what decoders have to put up with: colours outside the
// palette, runs past the end of a row, pixels that are said to begin elsewhere.
class RandomBMP {
public:
    // The bitmaps that cursors can hold have neither runs nor anything between palette and pixels.
    enum class Kind { any, ofCursor };

    RandomBMP(Random& random, Kind kind);

    support::ByteBuffer bytes() const;

    std::uint32_t headerBytes = 40;
    int width = 1;
    int height = 1; // negative: top row first
    int bitCount = 24;
    std::uint32_t compression = 0;
    std::uint32_t colorsUsed = 0;
    std::uint32_t pixelOffset = 0;
    support::ByteBuffer afterHeader; // masks and palette
    support::ByteBuffer pixels;      // with what stands before them

private:
    support::ByteBuffer resolutions_;
    support::ByteBuffer longHeader_; // what one has beyond 40 bytes
};

}
