#include "benchmarks/RatioReporter.h"

#include <algorithm>
#include <cstdio>

namespace benchmarks {

void RatioReporter::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        const std::string name = run.run_name.function_name;
        const auto slash = name.rfind('/');
        if (run.run_type != Run::RT_Iteration || run.error_occurred || slash == name.npos)
            continue;
        const std::string subject = name.substr(0, slash);
        if (!figures_.contains(subject))
            order_.push_back(subject);

        Figure& figure = figures_[subject][name.substr(slash + 1)];
        const double seconds = run.real_accumulated_time /
                               static_cast<double>(std::max<std::int64_t>(1, run.iterations));
        if (figure.seconds != 0 && figure.seconds <= seconds)
            continue;
        figure.seconds = seconds;
        for (const auto& [counter, value] : run.counters)
            figure.counters[counter] = value;
    }
}

void RatioReporter::Finalize()
{
    std::printf("%-34s %12s   %-16s %12s %8s\n", "figure", "ours µs", "peer", "peer µs",
                "ours/peer");
    for (const auto& subject : order_) {
        const auto& cases = figures_[subject];
        const auto ours = cases.find("ours");
        if (ours == cases.end())
            continue;
        for (const auto& [who, figure] : cases) {
            if (who == "ours" && cases.size() > 1)
                continue;
            std::printf("%-34s %12.2f   %-16s %12.2f %8.3f", subject.c_str(),
                        ours->second.seconds * 1e6, who.c_str(), figure.seconds * 1e6,
                        ours->second.seconds / figure.seconds);
            for (const auto& [counter, value] : ours->second.counters) {
                std::printf("   %s %.0f", counter.c_str(), value);
                if (const auto peer = figure.counters.find(counter); peer != figure.counters.end())
                    std::printf(" : %.0f = %.3f", peer->second, value / peer->second);
            }
            std::printf("\n");
        }
    }
}

}
