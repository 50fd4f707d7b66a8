#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

// The process as a whole and its threads.
namespace SkinKit::Process {

// Gives the calling thread a name that debuggers and top show; of at most 15 characters.
void nameThread(const char* name);

// The processor time that the calling thread has used.
std::chrono::nanoseconds threadTime();

// Gives all memory that was freed back to the system. What is allocated next is slower for it.
void releaseFreeMemory();

// How many characters a line of the terminal has that standard error goes to; nothing when it goes
// elsewhere.
std::optional<int> errorColumns();

// The rest is for a program's main, never for the library itself.

// Ends the process with one line that says so, and by SIGABRT, when memory can't be had. For the
// program's start.
void abortOnOutOfMemory();

// Takes the places of standard streams that are closed, so that no file opened later does and is
// written to by what is printed. Printing to them fails as before.
void reserveStandardStreams();

// Makes a file that would grow past the process's limit an error of the write, like a full disk,
// rather than the process's end.
void ignoreFileSizeSignal();

// Takes the memory that loading and drawing one skin needs from the system in one step, and keeps
// it for what is allocated from then on. Page by page, as each is first touched, it would take a
// tenth of a short process's time.
void preallocateMemory();

// Makes a pipe that nobody reads any more an error of the write.
void ignorePipeSignal();

// Holds back the first SIGINT or SIGTERM, for work that is better ended in order; the next one ends
// the process.
void deferInterrupts();
// The signal that was held back, or 0.
int deferredInterrupt();
// Ends the process as that signal would have.
void raiseDeferredInterrupt();

}

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
