#include "SkinKit/Tooling/Gallery/ParallelFor.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <vector>

namespace SkinKit {
namespace {

// As many threads up to `count` as the system starts.
std::vector<std::jthread> startThreads(std::size_t count, const std::function<void()>& work)
{
    std::vector<std::jthread> threads;
    try {
        while (threads.size() < count)
            threads.emplace_back(work);
    } catch (const std::system_error&) {
        return threads; // those there are, and the caller's, do all the work
    }
    return threads;
}

}

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
    const auto helpers = startThreads(std::min(most, std::max<std::size_t>(count, 1)) - 1, work);
    work();
}

}
