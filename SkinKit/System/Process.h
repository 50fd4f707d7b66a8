#pragma once

#include <chrono>

// The process as a whole and its threads.
namespace SkinKit::Process {

// Gives the calling thread a name that debuggers and top show; of at most 15 characters.
void nameThread(const char* name);

// The processor time that the calling thread has used.
std::chrono::nanoseconds threadTime();

// Gives all memory that was freed back to the system. What is allocated next is slower for it.
void releaseFreeMemory();

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
