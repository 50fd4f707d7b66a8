#include "SkinKit/Tooling/Corpus/CorpusSample.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace SkinKit::CorpusSample {
namespace {

// The SplitMix64 generator.
class SplitMix64 {
public:
    explicit SplitMix64(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next()
    {
        state_ += 0x9E3779B97F4A7C15;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
        return z ^ (z >> 31);
    }

private:
    std::uint64_t state_;
};

}

std::vector<std::size_t> indices(std::size_t count, std::size_t n, std::uint64_t seed)
{
    std::vector<std::size_t> positions(count);
    std::iota(positions.begin(), positions.end(), std::size_t{0});
    if (n >= count)
        return positions;

    SplitMix64 random(seed);
    for (std::size_t i = count - 1; i > 0; --i)
        std::swap(positions[i], positions[random.next() % (i + 1)]);
    positions.resize(n);
    std::ranges::sort(positions);
    return positions;
}

}
