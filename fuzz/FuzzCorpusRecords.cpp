#include "SkinKit/Tooling/Corpus/CorpusPlan.h"
#include "SkinKit/Tooling/Report/CorpusReport.h"
#include "fuzz/Fuzzing.h"

#include <string>
#include <vector>

// The lines of a results file, each read and written, and the report on all of them. They serve as
// a crash log, too.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
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
    const CrashLog log = CrashLog::of("a.txt", asText({data, size}));
    const auto summary = CorpusReport::summarize(records, std::nullopt, 3, 1, {&log, 1});
    fuzzing::require(summary.files == summary.unique + summary.duplicates &&
                     summary.unique == summary.modern + summary.classic);
    fuzzing::require(!CorpusReport::markdown(summary).empty() &&
                     JSON::parse(summary.json().text()).has_value());
    const auto history = CorpusHistory::of(records);
    fuzzing::require(history.answered.size() + history.unanswered.size() <= records.size());
    return 0;
}
