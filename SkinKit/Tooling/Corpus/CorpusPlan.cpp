#include "SkinKit/Tooling/Corpus/CorpusPlan.h"

#include "SkinKit/Tooling/Corpus/CorpusSample.h"

#include <string_view>
#include <unordered_map>

namespace SkinKit {

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
