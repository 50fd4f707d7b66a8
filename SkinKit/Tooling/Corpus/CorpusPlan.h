#pragma once

#include "SkinKit/Tooling/Corpus/CorpusListing.h"
#include "SkinKit/Tooling/Corpus/CorpusRecord.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace SkinKit {

// A part of a collection, drawn by chance but the same for the same seed on every machine.
namespace CorpusSample {

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

// Which files of a listing get their turn.
struct CorpusPlan {
    // A file like an earlier one; both are positions in the listing.
    struct Duplicate {
        std::size_t file = 0;
        std::size_t of = 0;

        bool operator==(const Duplicate&) const = default;
    };

    std::int64_t unique = 0;           // different files in the listing
    std::vector<std::size_t> skins;    // the first of each, or a sample of them, as positions
    std::vector<Duplicate> duplicates; // of those skins

    bool operator==(const CorpusPlan&) const = default;

    // A file without a fingerprint is like no other.
    static CorpusPlan of(const std::vector<CorpusFile>& files, std::optional<std::int64_t> sample,
                         std::uint64_t seed);
};

// What earlier runs left in the results file.
struct CorpusHistory {
    std::unordered_set<std::string> answered; // the paths that have a result
    std::vector<CorpusRecord> unanswered;     // the first start of each skin that has none
    std::int64_t abnormalEnds = 0;            // the crashes, timeouts and memory overruns

    static CorpusHistory of(const std::vector<CorpusRecord>& records);
};

}
