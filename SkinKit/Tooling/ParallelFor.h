#pragma once

#include <cstddef>
#include <functional>

namespace SkinKit {

// Calls `body` for 0 … count - 1, each once, on as many threads as the machine runs at a time, in
// no certain order. No more are begun once one gives false.
void parallelFor(std::size_t count, const std::function<bool(std::size_t)>& body);

}
