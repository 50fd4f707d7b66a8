#include "SkinKit/Tooling/Corpus/CorpusPlan.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace SkinKit {
namespace CorpusSample {
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

CorpusPlan CorpusPlan::of(const std::vector<CorpusFile>& files, std::optional<std::int64_t> sample,
                          std::uint64_t seed)
{
    CorpusPlan plan;
    std::unordered_map<std::string_view, std::size_t> firstOf; // by fingerprint
    std::vector<Duplicate> duplicates;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const auto& md5 = files[i].md5;
        const std::size_t first = md5 ? firstOf.emplace(*md5, i).first->second : i;
        if (first == i)
            plan.skins.push_back(i);
        else
            duplicates.push_back({i, first});
    }
    plan.unique = std::ssize(plan.skins);
    if (sample)
        plan.skins = CorpusSample::pick(plan.skins, static_cast<std::size_t>(*sample), seed);

    const std::unordered_set<std::size_t> picked(plan.skins.begin(), plan.skins.end());
    for (const Duplicate& duplicate : duplicates)
        if (picked.contains(duplicate.of))
            plan.duplicates.push_back(duplicate);
    return plan;
}

CorpusHistory CorpusHistory::of(const std::vector<CorpusRecord>& records)
{
    CorpusHistory history;
    for (const CorpusRecord& record : records) {
        if (record.isAbnormalEnd())
            ++history.abnormalEnds;
        if (record.event == "result" && record.path)
            history.answered.insert(*record.path);
    }
    std::unordered_set<std::string_view> handled;
    for (const CorpusRecord& record : records)
        if (record.event == "start" && record.path && !history.answered.contains(*record.path) &&
            handled.insert(*record.path).second)
            history.unanswered.push_back(record);
    return history;
}

}
