#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// Loops that the processor's vector units do several times faster than the compiler makes of plain
// code. Each picks the best form that the processor has, once; the plain loop is the fallback and,
// in the tests, the oracle.
namespace SkinKit::Simd {

// Which byte of a pixel is which channel; `none` for a channel that is 0.
struct ByteOrder {
    static constexpr std::uint8_t none = 0x80;

    std::uint8_t red = none;
    std::uint8_t green = none;
    std::uint8_t blue = none;
};
// Turns `count` pixels of three or four bytes into RGBA words with alpha 255.
void expandBytes(const std::uint8_t* source, std::uint32_t* target, std::size_t count,
                 int pixelBytes, const ByteOrder& order);

// The bits of a little-endian pixel that are one channel. With n bits set in the mask, the channel
// is (pixel & mask) >> (zeros below the mask), times 255 / (2^n - 1), rounded down, 255 at most.
struct BitField {
    explicit BitField(std::uint32_t channelMask);

    std::uint32_t mask;
    std::uint32_t shift;
    std::uint32_t largest; // 2^n - 1: a mask with gaps gives larger values
    double scale;          // 255 / largest, rounded up
    std::uint32_t factor;  // that times 2^24, also rounded up
};
struct BitFields {
    BitField red, green, blue;
};
// Turns `count` pixels of two or four bytes into RGBA words with alpha 255.
void expandFields(const std::uint8_t* source, std::uint32_t* target, std::size_t count,
                  int pixelBytes, const BitFields& fields);

// How two rows of pixels differ.
struct DifferenceCounts {
    std::int64_t compared = 0;        // both alphas are above 0
    std::int64_t differing = 0;       // of those, any colour channel differs
    std::int64_t beyondTolerance = 0; // of those, one channel by more than `tolerance`

    bool operator==(const DifferenceCounts&) const = default;
};
DifferenceCounts countDifferences(const std::uint32_t* ours, const std::uint32_t* reference,
                                  std::size_t count, std::uint8_t tolerance);

// All forms of each that this processor can run, from the plain one to the one that is used.
using ExpandBytes = decltype(&expandBytes);
using ExpandFields = decltype(&expandFields);
using CountDifferences = decltype(&countDifferences);
std::span<const ExpandBytes> expandBytesForms();
std::span<const ExpandFields> expandFieldsForms();
std::span<const CountDifferences> countDifferencesForms();

}
