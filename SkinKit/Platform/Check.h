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

}
