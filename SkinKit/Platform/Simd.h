#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// Loops that the processor's vector units do several times faster than the compiler makes of plain
// code. Each picks the best form that the processor has, once; the plain loop is the fallback and,
// in the tests, the oracle.
namespace SkinKit::Simd {

// Turns `count` pixels of three bytes (blue, green, red) into RGBA words with alpha 255.
void expandBGR(const std::uint8_t* source, std::uint32_t* target, std::size_t count);

// All forms that this processor can run, from the plain one to the one that is used.
using ExpandBGR = void (*)(const std::uint8_t* source, std::uint32_t* target, std::size_t count);
std::span<const ExpandBGR> expandBGRForms();

// How two rows of pixels differ.
struct DifferenceCounts {
    std::int64_t compared = 0;        // both alphas are above 0
    std::int64_t differing = 0;       // of those, any colour channel differs
    std::int64_t beyondTolerance = 0; // of those, one channel by more than `tolerance`

    bool operator==(const DifferenceCounts&) const = default;
};
DifferenceCounts countDifferences(const std::uint32_t* ours, const std::uint32_t* reference,
                                  std::size_t count, std::uint8_t tolerance);

using CountDifferences = DifferenceCounts (*)(const std::uint32_t* ours,
                                              const std::uint32_t* reference, std::size_t count,
                                              std::uint8_t tolerance);
std::span<const CountDifferences> countDifferencesForms();

}
