#pragma once

#include "SkinKit/System/Process.h"
#include "SkinKit/Tooling/CommandLine/CorpusOptions.h"
#include "SkinKit/Tooling/Corpus/CorpusRecord.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace SkinKit {

// What came of one skin; the fields of the same names of its record.
struct CorpusOutcome {
    std::int64_t entries = 0;
    std::string status;
    std::optional<bool> mainWindowComplete;
    std::vector<std::string> warnings;
    std::vector<std::string> fallbacks;
    std::optional<std::string> error;
    double parseMs = 0;
    std::optional<double> renderMs;

    bool operator==(const CorpusOutcome&) const = default;
};

// Runs every distinct skin of a collection through the parser and the renderer, one at a time, and
// writes what came of each to "results.jsonl". A watchdog thread ends the process when a skin takes
// too long or too much memory, after writing so; run again with `resume`, the next skin is taken,
// and one that never answered is written down as crashed. So a bad skin costs a restart, never the
// run.
class CorpusRunner {
public:
    // How to run; the initial values are those of the command line.
    struct Config {
        double timeout = 10; // seconds for a skin
        std::int64_t maxMemoryMiB = 4096;
        std::optional<std::int64_t> sample;
        std::uint64_t seed = 1;
        bool resume = false;
        std::optional<std::filesystem::path> manifest;
        double pollInterval = 0.25;            // seconds between the watchdog's looks
        std::int64_t skinsBetweenLines = 1000; // of progress; at least 1

        bool operator==(const Config&) const = default;

        // The watchdog looks ten times in a skin's time, as far as that is reasonable.
        static Config of(const CorpusOptions& options);
    };

    // The three effects that a test can replace.
    struct Hooks {
        std::function<CorpusOutcome(const std::filesystem::path& file)> process;
        std::function<ProcessFootprint::Mebibytes()> footprint;
        // Ends the process at once. Should it return, run() does as soon as the skin in hand is
        // done.
        std::function<void(int status)> abort;

        // The real ones.
        static Hooks live();
    };

    // How a run ended, in numbers of files and skins.
    struct Totals {
        std::int64_t files = 0;
        std::int64_t unique = 0;
        std::int64_t attempted = 0; // skins processed in this run
        std::int64_t left = 0;      // skins without a result, when it was cancelled
        bool aborted = false;       // by the watchdog
        bool cancelled = false;     // by the caller

        bool operator==(const Totals&) const = default;
    };

    using Tally = std::map<std::string, std::int64_t, std::less<>>; // skins by status

    // How far a run is: all files get their fingerprints, the skins their turns, and the duplicates
    // their records.
    struct Progress {
        enum class Phase { listing, running, duplicates };

        Phase phase = Phase::listing;
        std::int64_t done = 0; // in this run
        std::int64_t total = 0;
        std::int64_t before = 0; // of `total`, skins that earlier runs answered for
        Tally tally;             // of `done`
    };

    // What a caller may want to know or to decide meanwhile.
    struct Callbacks {
        std::function<void(const Progress&)> advance; // after each step
        // Something a user must see although the run goes on, or why the watchdog ends it; then it
        // comes from the watchdog's thread.
        std::function<void(const std::string& text)> note;
        std::function<bool()> isCancelled; // asked between skins
    };

    // Why a run could not begin or go on.
    struct Error {
        std::string description; // which file, and what is wrong with it

        bool operator==(const Error&) const = default;
    };

    // `progress` gets a line now and then. What is empty is not called.
    CorpusRunner(std::filesystem::path corpus, std::filesystem::path out, Config config,
                 Hooks hooks, std::function<void(const std::string& line)> progress,
                 Callbacks callbacks = {});

    // Fails when the collection, the manifest or an old listing can't be read or another run has
    // the output folder, before anything old is touched; and when something can't be written: then
    // what was written stays. Without `resume`, results that are there are kept as
    // "results.jsonl~", in place of an older file of that name.
    std::expected<Totals, Error> run() const;

    // The file that the records are added to.
    std::filesystem::path resultsURL() const { return out_ / "results.jsonl"; }

    // The live `process`.
    static CorpusOutcome processSkin(const std::filesystem::path& file);

    // "[done/total] ok 50.0% partial …": shares of `done`.
    static std::string progressLine(std::int64_t done, std::int64_t total, const Tally& tally);

private:
    class Run;

    const std::filesystem::path corpus_;
    const std::filesystem::path out_;
    const Config config_;
    const Hooks hooks_;
    const std::function<void(const std::string&)> progress_;
    const Callbacks callbacks_;
};

}
