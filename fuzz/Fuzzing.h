#pragma once

#include "SkinKit/Platform/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// What every fuzz target needs: its entry, and a way to say what must hold.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzzing {

// Ends the run where something that must hold does not.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

}
