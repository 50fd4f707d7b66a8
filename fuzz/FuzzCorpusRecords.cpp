#include "SkinKit/Tooling/Corpus/CorpusPlan.h"
#include "SkinKit/Tooling/Report/CorpusReport.h"
#include "fuzz/Fuzzing.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace {

using namespace SkinKit;

std::ptrdiff_t linesOf(const CorpusSummary& summary)
{
    return std::ranges::count(CorpusReport::markdown(summary), '\n');
}

void requireSound(const CorpusSummary& summary)
{
    fuzzing::require(summary.files == summary.unique + summary.duplicates &&
                     summary.unique == summary.modern + summary.classic);
    for (const double rate :
         {summary.okRate, summary.partialRate, summary.failedRate, summary.completeRate})
        fuzzing::require(rate >= 0 && rate <= 1);
    fuzzing::require(std::ssize(summary.crashed) == summary.counts.abnormalEnds());
    for (const auto& log : summary.crashLogs)
        fuzzing::require(!log.place || *log.skin == summary.crashed[*log.place]);
    fuzzing::require(JSON::parse(summary.json().text()).has_value());

    // No text of a record makes a line of its own.
    static const std::ptrdiff_t emptyLines =
        linesOf(CorpusReport::summarize(CorpusSkins(), {}, 3, 1, {}));
    const std::ptrdiff_t rows = std::ssize(summary.slowest) + std::ssize(summary.failureClasses);
    const std::ptrdiff_t crashRows = summary.crashed.empty() ? 0 : 1 + std::ssize(summary.crashed);
    fuzzing::require(linesOf(summary) == emptyLines + rows + crashRows);
}

// What a run that goes on makes of them.
void requireSound(const CorpusHistory& history, const std::vector<CorpusRecord>& records)
{
    fuzzing::require(history.answered.size() + history.unanswered.size() <= records.size() &&
                     history.abnormalEnds <= std::ssize(records));
    for (const auto& start : history.unanswered)
        fuzzing::require(start.event == "start" && start.path &&
                         !history.answered.contains(*start.path));
}

}

// The lines of a results file, each alone and all of them summed up. They serve as a crash log,
// too.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<CorpusRecord> records;
    for (std::string_view rest = asText({data, size}); !rest.empty();) {
        const std::string line(rest.substr(0, rest.find('\n')));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        const auto record = CorpusRecord::parse(line);
        if (!record)
            continue;
        fuzzing::require(CorpusRecord::parse(record->line()) == record);
        records.push_back(*record);
    }
    if (records.empty())
        return 0;
    const CrashLog log = CrashLog::of("a.txt", asText({data, size}));
    requireSound(CorpusReport::summarize(records, std::nullopt, 3, 1, {&log, 1}));
    requireSound(CorpusHistory::of(records), records);
    return 0;
}
