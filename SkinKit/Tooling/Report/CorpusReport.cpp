#include "SkinKit/Tooling/Report/CorpusReport.h"

#include "SkinKit/Base/Numbers.h"
#include "SkinKit/Tooling/Corpus/CorpusPlan.h"
#include "SkinKit/Tooling/CrashLogs/CrashedSkins.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <ranges>
#include <tuple>
#include <utility>
#include <vector>

namespace SkinKit::CorpusReport {
namespace {

using Skin = CorpusSkins::File;
using Skins = std::vector<const Skin*>;

std::int64_t countClassic(const Skins& skins)
{
    return std::ranges::count_if(skins, [](const Skin* skin) { return !skin->isModern(); });
}

CorpusSummary::Counts countClassicByStatus(const Skins& skins)
{
    CorpusSummary::Counts counts;
    const auto count = [](std::int64_t& number, bool isCounted) { number += isCounted ? 1 : 0; };
    for (const Skin* skin : skins) {
        if (skin->isModern())
            continue;
        count(counts.ok, skin->status == "ok");
        count(counts.partial, skin->status == "partial");
        count(counts.failed, skin->status == "failed");
        count(counts.crashed, skin->status == "crashed");
        count(counts.timeout, skin->status == "timeout");
        count(counts.memory, skin->status == "memory");
        count(counts.mainWindowComplete, skin->mainWindowComplete);
    }
    return counts;
}

double rate(std::int64_t count, std::int64_t all)
{
    return all == 0 ? 0 : static_cast<double>(count) / static_cast<double>(all);
}

CorpusSummary::Example example(const Skin& skin)
{
    return {skin.name, skin.md5,
            skin.museumUrl.empty() ? std::string(museum) + skin.md5 : skin.museumUrl};
}

CorpusSummary::Timing timing(const CorpusSkins& all, const Skins& timed)
{
    std::vector<double> sorted;
    sorted.reserve(timed.size());
    CorpusSummary::Timing timing;
    for (const Skin* skin : timed) {
        sorted.push_back(*skin->ms);
        timing.totalMs += *skin->ms;
    }
    std::ranges::sort(sorted);
    timing.count = std::ssize(sorted);
    timing.medianMs = percentile(sorted, 50);
    timing.p95Ms = percentile(sorted, 95);
    timing.p99Ms = percentile(sorted, 99);
    timing.maxMs = percentile(sorted, 100);
    timing.wallSeconds = all.wallSeconds();
    timing.peakFootprintMiB = all.peakFootprintMiB();
    return timing;
}

std::vector<CorpusSummary::Slow> slowest(Skins timed)
{
    constexpr std::ptrdiff_t most = 20;
    // Skins as slow as each other stay in their order.
    const auto isSlower = [](const Skin* a, const Skin* b) {
        return std::tuple(*b->ms, a) < std::tuple(*a->ms, b);
    };
    const auto end = timed.begin() + std::min(most, std::ssize(timed));
    std::ranges::partial_sort(timed, end, isSlower);
    std::vector<CorpusSummary::Slow> slowest;
    for (const Skin* skin : std::ranges::subrange(timed.begin(), end))
        slowest.push_back(
            {skin->name, skin->md5, skin->size, skin->entries, *skin->ms, skin->status});
    return slowest;
}

std::vector<CorpusSummary::FailureClass> failureClasses(const CorpusSkins& all, const Skins& skins,
                                                        std::int64_t classic)
{
    constexpr std::size_t maxExamples = 5;
    std::vector<CorpusSummary::FailureClass> classes(all.classKeys().size());
    for (const Skin* skin : skins) {
        for (const std::uint32_t i : skin->classes) {
            ++classes[i].count;
            if (classes[i].examples.size() < maxExamples)
                classes[i].examples.push_back(example(*skin));
        }
    }
    for (std::size_t i = 0; i < classes.size(); ++i) {
        classes[i].key = all.classKeys()[i];
        classes[i].share = rate(classes[i].count, classic);
        const auto known = std::ranges::find(knownIssues(), classes[i].key, &KnownIssue::classKey);
        if (known != knownIssues().end())
            classes[i].issue = known->issue;
    }
    // A later result of the same file may have taken the last skin out of a class.
    std::erase_if(classes, [](const auto& failureClass) { return failureClass.count == 0; });
    std::ranges::sort(classes, [](const auto& a, const auto& b) {
        return std::tie(b.count, a.key) < std::tie(a.count, b.key);
    });
    return classes;
}

std::vector<CorpusSummary::CrashLog> tied(std::span<const CrashLog> logs, const Skins& crashed)
{
    const CrashedSkins skins(crashed);
    std::vector<CorpusSummary::CrashLog> result;
    for (const CrashLog& log : logs) {
        auto& entry = result.emplace_back(log.file, log.signature);
        entry.place = skins.find(log);
        if (entry.place)
            entry.skin = example(*crashed[*entry.place]);
    }
    return result;
}

CorpusSummary::SampleSection sampleSection(const Skins& skins, std::int64_t requested,
                                           std::uint64_t seed)
{
    const auto n = static_cast<std::size_t>(std::max<std::int64_t>(requested, 0));
    const Skins sampled = CorpusSample::pick(skins, n, seed);
    CorpusSummary::SampleSection section;
    section.requested = requested;
    section.seed = seed;
    section.skins = std::ssize(sampled);
    section.classic = countClassic(sampled);
    section.counts = countClassicByStatus(sampled);
    section.completeRate = rate(section.counts.mainWindowComplete, section.classic);
    return section;
}

}

CorpusSummary summarize(std::span<const CorpusRecord> records, std::optional<JSON> environment,
                        std::int64_t sample, std::uint64_t seed,
                        std::span<const CrashLog> crashLogs)
{
    CorpusSkins skins;
    for (const CorpusRecord& record : records)
        skins.add(record);
    return summarize(skins, std::move(environment), sample, seed, crashLogs);
}

CorpusSummary summarize(const CorpusSkins& all, std::optional<JSON> environment,
                        std::int64_t sample, std::uint64_t seed,
                        std::span<const CrashLog> crashLogs)
{
    Skins skins;
    Skins timed;
    Skins crashed;
    for (const Skin& file : all.files()) {
        if (file.isDuplicate)
            continue;
        skins.push_back(&file);
        if (file.ms)
            timed.push_back(&file);
        if (file.isAbnormalEnd())
            crashed.push_back(&file);
    }

    CorpusSummary summary;
    summary.environment = std::move(environment);
    summary.files = std::ssize(all.files());
    summary.unique = std::ssize(skins);
    summary.duplicates = summary.files - summary.unique;
    summary.classic = countClassic(skins);
    summary.modern = summary.unique - summary.classic;
    summary.counts = countClassicByStatus(skins);
    summary.okRate = rate(summary.counts.ok, summary.classic);
    summary.partialRate = rate(summary.counts.partial, summary.classic);
    summary.failedRate = rate(summary.counts.failed, summary.classic);
    summary.completeRate = rate(summary.counts.mainWindowComplete, summary.classic);
    summary.timing = timing(all, timed);
    summary.slowest = slowest(std::move(timed));
    summary.failureClasses = failureClasses(all, skins, summary.classic);
    for (const Skin* skin : crashed)
        summary.crashed.push_back(example(*skin));
    summary.crashLogs = tied(crashLogs, crashed);
    summary.sample = sampleSection(skins, sample, seed);

    const std::int64_t crashes = summary.sample.counts.abnormalEnds();
    const double complete = summary.sample.completeRate;
    summary.gatePass = crashes == 0 && complete >= leastCompleteRate;
    summary.gate = summary.gatePass
                       ? "gate: PASS"
                       : "gate: FAIL (crashes=" + std::to_string(crashes) +
                             ", sample complete=" + Numbers::oneDecimal(complete * 100) +
                             "% < 95%)";
    return summary;
}

double percentile(std::span<const double> sorted, double p)
{
    if (sorted.empty())
        return 0;
    const auto count = static_cast<double>(sorted.size());
    const double rank = std::min(std::fmax(std::ceil(p / 100 * count), 1), count);
    return sorted[static_cast<std::size_t>(rank) - 1];
}

}
