#pragma once

#include "SkinKit/Base/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <source_location>

// What every fuzz target needs: its entry, and a way to say what must hold.
//
// A target answers 0, or `notKept` for an input that was of no use, so that others are not made
// from it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzzing {

inline constexpr int notKept = -1;

// Ends the run where something that must hold does not.
inline void require(bool holds, std::source_location where = std::source_location::current())
{
    if (holds)
        return;
    std::fprintf(stderr, "%s:%u: does not hold\n", where.file_name(),
                 static_cast<unsigned>(where.line()));
    std::abort();
}

}
