#include "SkinKit/Base/Check.h"

#include <cstdio>
#include <cstdlib>
#include <new>

namespace SkinKit {
namespace {

void (*outOfMemory)() = nullptr;

}

void fail(const char* what)
{
    std::fprintf(stderr, "SkinKit: %s\n", what);
    std::abort();
}

void checkMemory(bool isThere, const char* what)
{
    if (isThere)
        return;
    if (outOfMemory)
        outOfMemory();
    fail(what);
}

void whenOutOfMemory(void (*end)())
{
    outOfMemory = end;
    std::set_new_handler(end);
}

}
