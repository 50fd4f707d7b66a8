#pragma once

#include <cstdint>

// The process locked in with what it has already, before it looks at bytes that nobody vouches for.
// For a program's main, never for the library itself, and for programs of one thread. Stands in a
// library of its own, since not every program should carry what it is made with.
namespace SkinKit::Sandbox {

// What the process may still cost. Generous: an honest picture takes a hundredth of it.
struct Limits {
    std::int64_t moreMemoryBytes = 1 << 30; // of address space, beyond what it has
    std::int64_t maxFileBytes = 64 << 20;   // of any file that it writes
    int processorSeconds = 20;              // since its start
};

// What of it took effect. A kernel, or a sandbox that the process stands in already, may refuse any
// of them.
struct Locks {
    bool noNewPrivileges = false;
    bool limits = false;
    bool systemCalls = false; // filtered

    bool operator==(const Locks&) const = default;
};

// From here on, for good: the process works on its own memory, writes to the descriptor `output`
// and to standard error, and ends. Every other system call fails with EPERM: no file can be opened,
// read, renamed or looked at, no program started, no connection made, no other process reached, and
// no memory be made executable. Where the filter is refused, the limits still keep new descriptors
// and processes away (the latter only from an ordinary user). More memory than the limit can't be
// had; more processor time ends the process.
Locks lockDown(int output, const Limits& limits = {});

}
