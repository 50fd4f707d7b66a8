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

// The plain form.
void expandBGRPlain(const std::uint8_t* source, std::uint32_t* target, std::size_t count);

// All forms that this processor can run, from the plain one to the one that is used.
using ExpandBGR = void (*)(const std::uint8_t* source, std::uint32_t* target, std::size_t count);
std::span<const ExpandBGR> expandBGRForms();

}
