#include "SkinKit/Platform/Check.h"

#include <cstdio>
#include <cstdlib>

namespace SkinKit {

void fail(const char* what)
{
    std::fprintf(stderr, "SkinKit: %s\n", what);
    std::abort();
}

}
