#include "SkinKit/Tooling/ParallelFor.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

namespace SkinKit {

void parallelFor(std::size_t count, const std::function<bool(std::size_t)>& body)
{
    std::atomic<std::size_t> next = 0;
    std::atomic<bool> goesOn = true;
    const auto work = [&] {
        for (std::size_t i = next++; i < count && goesOn; i = next++)
            if (!body(i))
                goesOn = false;
    };
    const std::size_t most = std::max(std::thread::hardware_concurrency(), 1U);
    std::vector<std::jthread> helpers;
    for (std::size_t i = 1; i < std::min(most, count); ++i)
        helpers.emplace_back(work);
    work();
}

}
