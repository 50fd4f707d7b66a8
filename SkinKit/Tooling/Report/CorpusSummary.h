#pragma once

#include "SkinKit/Base/JSON.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace SkinKit {

// What came of a collection's runs. A skin is a file that is no duplicate of another; a classic one
// is one that is not modern. Rates and shares are of the classic skins, from 0 to 1.
struct CorpusSummary {
    // How many skins have which status.
    struct Counts {
        std::int64_t ok = 0;
        std::int64_t partial = 0;
        std::int64_t failed = 0;
        std::int64_t crashed = 0;
        std::int64_t timeout = 0;
        std::int64_t memory = 0;
        std::int64_t mainWindowComplete = 0;

        bool operator==(const Counts&) const = default;

        // The skins that had no chance to answer.
        std::int64_t abnormalEnds() const { return crashed + timeout + memory; }
    };

    // How long skins took, from opening the file to its record.
    struct Timing {
        std::int64_t count = 0; // skins timed, modern ones too
        double medianMs = 0;
        double p95Ms = 0;
        double p99Ms = 0;
        double maxMs = 0;
        double totalMs = 0;
        double wallSeconds = 0; // from the first record to the last
        std::int64_t peakFootprintMiB = 0;

        bool operator==(const Timing&) const = default;
    };

    // A skin among the slowest.
    struct Slow {
        std::string name;
        std::string md5;
        std::int64_t size = 0;
        std::int64_t entries = 0;
        double ms = 0;
        std::string status;

        bool operator==(const Slow&) const = default;
    };

    // A skin as the report names it.
    struct Example {
        std::string name;
        std::string md5;
        std::string url; // the skin's page in a museum

        bool operator==(const Example&) const = default;
    };

    // One thing that skins fail at or lack; `share` is of the classic skins.
    struct FailureClass {
        std::string key;
        std::int64_t count = 0;
        double share = 0;
        std::vector<Example> examples;
        std::optional<std::string> issue; // where it is known already

        bool operator==(const FailureClass&) const = default;
    };

    // A crash log that was read, and the skin it is about.
    struct CrashLog {
        std::string file;
        std::string signature;            // empty where none was found
        std::optional<Example> skin;      // the one it is about
        std::optional<std::size_t> place; // of that skin in `crashed`

        bool operator==(const CrashLog&) const = default;
    };

    // A part of the skins drawn by chance, on which the gate stands.
    struct SampleSection {
        std::int64_t requested = 0;
        std::uint64_t seed = 0;
        std::int64_t skins = 0;
        std::int64_t classic = 0;
        Counts counts;
        double completeRate = 0;

        bool operator==(const SampleSection&) const = default;
    };

    std::optional<JSON> environment;
    std::int64_t files = 0;
    std::int64_t unique = 0;
    std::int64_t duplicates = 0;
    std::int64_t modern = 0;
    std::int64_t classic = 0;
    Counts counts;
    double okRate = 0;
    double partialRate = 0;
    double failedRate = 0;
    double completeRate = 0;
    Timing timing;
    std::vector<Slow> slowest;                // the slowest first
    std::vector<FailureClass> failureClasses; // the largest first
    std::vector<Example> crashed;             // crashed, out of time or out of memory
    std::vector<CrashLog> crashLogs;          // all that were read
    SampleSection sample;
    bool gatePass = false;
    std::string gate;

    bool operator==(const CorpusSummary&) const = default;

    // Its keys are the fields' names, sorted; what is absent has none.
    JSON json() const;
};

}
