#pragma once

#include <cstddef>
#include <functional>

namespace SkinKit {

// Calls `body` for 0 … count - 1, each once, in no certain order, on the caller's thread and as
// many others as the machine runs at a time. Where fewer can be started, or none, those there are
// do all. No more calls are begun once one gives false.
void parallelFor(std::size_t count, const std::function<bool(std::size_t)>& body);

}
