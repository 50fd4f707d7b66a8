#include "SkinKit/Tooling/CorpusReport.h"
#include "fuzz/Fuzzing.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace {

std::ptrdiff_t linesOf(const SkinKit::CorpusSummary& summary)
{
    return std::ranges::count(SkinKit::CorpusReport::markdown(summary), '\n');
}

}

// The lines of a results file, each alone and all of them summed up.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    std::vector<CorpusRecord> records;
    for (std::string_view rest = asText({data, size}); !rest.empty();) {
        const std::string line(rest.substr(0, rest.find('\n')));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        const auto record = CorpusRecord::parse(line);
        // A blank in front keeps a line from being read the quick way.
        fuzzing::require(CorpusRecord::parse(" " + line) == record);
        if (!record)
            continue;
        fuzzing::require(CorpusRecord::parse(record->line()) == record);
        records.push_back(*record);
    }

    const auto summary = CorpusReport::summarize(records, std::nullopt, 3, 1, {});
    fuzzing::require(summary.files == summary.unique + summary.duplicates &&
                     summary.unique == summary.modern + summary.classic);
    fuzzing::require(JSON::parse(summary.json().text()).has_value());
    // No text of a record makes a line of its own.
    static const std::ptrdiff_t emptyLines =
        linesOf(CorpusReport::summarize(CorpusSkins(), {}, 3, 1, {}));
    const std::ptrdiff_t rows = std::ssize(summary.slowest) + std::ssize(summary.failureClasses);
    const std::ptrdiff_t crashRows = summary.crashed.empty() ? 0 : 1 + std::ssize(summary.crashed);
    fuzzing::require(linesOf(summary) == emptyLines + rows + crashRows);
    return 0;
}
