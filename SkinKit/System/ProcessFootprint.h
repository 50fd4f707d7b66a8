#pragma once

#include <cstdint>

// How much memory the process holds: its resident set, as the kernel counts it.
namespace SkinKit::ProcessFootprint {

// Now, and the most so far.
struct Mebibytes {
    std::int64_t current = 0;
    std::int64_t lifetimeMax = 0;

    bool operator==(const Mebibytes&) const = default;
};

// Both rounded down; 0 for what can't be found out.
Mebibytes mebibytes();

}
