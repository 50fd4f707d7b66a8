#pragma once

namespace SkinKit {

// Ends the process loudly: `what` goes to standard error, then abort(). For promises that our own
// code or a caller broke (a negative limit, a raster that cannot be had), never for bad input.
[[noreturn]] void fail(const char* what);

// The one always-on check. Compiled into every build, so a broken promise never goes unnoticed.
inline void check(bool holds, const char* what)
{
    if (!holds) [[unlikely]]
        fail(what);
}

// The same for memory that could not be had. It ends the process as `whenOutOfMemory` said, if that
// was ever called.
void checkMemory(bool isThere, const char* what);

// Sets what ends the process when memory can't be had, in the library or by operator new. `end`
// must not return. For programs: a library leaves that to its host.
void whenOutOfMemory(void (*end)());

}
