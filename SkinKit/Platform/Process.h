#pragma once

// The process as a whole; for a program's main, never for the library itself.
namespace SkinKit::Process {

// Makes a file that would grow past the process's limit an error of the write, like a full disk,
// rather than the process's end.
void reportFileSizeLimit();

}
