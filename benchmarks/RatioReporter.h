#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace benchmarks {

// Prints, after the runs, each figure of ours beside its peers: the fastest repetition of each, and
// the ratio of the two.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    RatioReporter() : ConsoleReporter(OO_None) {}

    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    struct Figure {
        double seconds = 0; // of one iteration, the fastest repetition
        std::map<std::string, double> counters;
    };

    std::vector<std::string> order_; // "<what>/<skin>", as first met
    std::map<std::string, std::map<std::string, Figure>> figures_;
};

}
