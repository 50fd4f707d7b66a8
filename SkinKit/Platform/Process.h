#pragma once

// The process as a whole and its threads.
namespace SkinKit::Process {

// Gives the calling thread a name that debuggers and top show; of at most 15 characters.
void nameThread(const char* name);

// Makes a file that would grow past the process's limit an error of the write, like a full disk,
// rather than the process's end. For a program's main, never for the library itself.
void reportFileSizeLimit();

// Takes the memory that loading and drawing one skin needs from the system in one step, and keeps
// it for what is allocated from then on. Page by page, as each is first touched, it would take a
// tenth of a short process's time.
void takeMemoryAtOnce();

}
