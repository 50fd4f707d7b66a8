#pragma once

#include "SkinKit/Tooling/CommandLine/CommandLine.h"

#include <cstdint>
#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// The command lines for collections. Each `parse` reads the arguments behind the command's word. It
// is pure: it prints nothing and never exits.
namespace SkinKit {

// Runs a whole collection: `skintool corpus <dir> --out <dir> …`.
struct CorpusOptions {
    std::string input; // the collection's folder
    std::string out;   // the folder of the results
    bool resume = false;
    double timeout = 10; // seconds for a skin; may be infinite
    std::int64_t maxMemoryMiB = 4096;
    std::optional<std::int64_t> sample; // how many skins, all without
    std::uint64_t seed = 1;
    std::optional<std::string> manifest;

    bool operator==(const CorpusOptions&) const = default;

    static const std::string_view usage;
    static std::expected<CorpusOptions, UsageError> parse(std::span<const std::string> arguments);
};

// Reports on a run: `skintool corpus-report <results.jsonl> …`.
struct CorpusReportOptions {
    std::string input;              // the results file
    std::string markdown;           // the report to write
    std::string json;               // the summary to write
    std::optional<std::string> env; // a JSON document on the environment
    std::int64_t sample = 1000;     // how many skins the gate looks at
    std::uint64_t seed = 1;
    std::optional<std::string> crashes; // a folder of crash logs

    bool operator==(const CorpusReportOptions&) const = default;

    static const std::string_view usage;
    static std::expected<CorpusReportOptions, UsageError>
    parse(std::span<const std::string> arguments);
};

}
