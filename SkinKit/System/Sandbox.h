#pragma once

#include <cstdint>
#include <optional>
#include <string>

// The process locked in with what it has already, before it looks at bytes that nobody vouches for.
// For a program's main, never for the library itself, and for programs of one thread. Stands in a
// library of its own, since not every program should carry what it is made with.
namespace SkinKit::Sandbox {

// What the process may cost. An honest picture takes a tenth of it.
struct Limits {
    std::int64_t moreMemoryBytes = 240 << 20; // of address space, beyond what it has
    std::int64_t maxFileBytes = 64 << 20;     // of any file that it writes
    int processorSeconds = 3;                 // since its start
};

// How the process ends when it reaches one of them: with such a line on standard error, line feed
// included, and this status.
struct LastWords {
    std::string outOfMemory;
    std::string outOfTime;
    int status = 1;
};

// Holds the process to these limits from here on, for good, and tells whether all of them took
// effect. No core file is written any more.
bool limitCosts(const Limits& limits, const LastWords& words);

// The open files that the process goes on with.
struct OpenFiles {
    int output = -1;
    std::optional<int> input;
};

// What of it took effect. A kernel, or a sandbox that the process stands in already, may refuse any
// of them.
struct Locks {
    bool noNewPrivileges = false;
    bool limits = false;
    bool systemCalls = false; // filtered

    bool operator==(const Locks&) const = default;
};

// From here on, for good: the process works on its own memory, reads the one input and its own
// processor time, writes to the output and to standard error, and ends. Every other system call
// fails with EPERM: no file can be opened, renamed or looked at, nothing else read, no program
// started, no connection made, no other process reached, and no memory be made executable. Where
// the filter is refused, limits still keep new descriptors and processes away (the latter only from
// an ordinary user). A process that comes to its end by a limit on its costs leaves the output
// empty.
Locks lockDown(const OpenFiles& files);

}
