#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace SkinKit {

// The command line that reports on a run: `skintool corpus-report <results.jsonl> …`.
struct CorpusReportOptions {
    // What is wrong with the arguments, to be shown above the usage.
    struct UsageError {
        std::string description;

        bool operator==(const UsageError&) const = default;
    };

    std::string input;              // the results file
    std::string markdown;           // the report to write
    std::string json;               // the summary to write
    std::optional<std::string> env; // a JSON document on the environment
    std::int64_t sample = 1000;     // how many skins the gate looks at
    std::uint64_t seed = 1;
    std::optional<std::string> crashes; // a folder of crash logs

    bool operator==(const CorpusReportOptions&) const = default;

    static const std::string_view usage;

    // Reads the arguments behind the word "corpus-report". Pure: prints nothing, never exits.
    static std::expected<CorpusReportOptions, UsageError>
    parse(std::span<const std::string> arguments);
};

}
