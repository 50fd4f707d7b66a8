#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// A part of a collection, drawn by chance but the same for the same seed on every machine.
namespace SkinKit::CorpusSample {

// The ascending positions of `n` out of `count` things; all of them when there are no more.
std::vector<std::size_t> indices(std::size_t count, std::size_t n, std::uint64_t seed);

// The things themselves, in their order.
template <typename Item>
std::vector<Item> pick(const std::vector<Item>& items, std::size_t n, std::uint64_t seed)
{
    std::vector<Item> picked;
    for (const std::size_t index : indices(items.size(), n, seed))
        picked.push_back(items[index]);
    return picked;
}

}
