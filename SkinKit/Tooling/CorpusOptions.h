#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace SkinKit {

// The command line that runs a whole collection: `skintool corpus <dir> --out <dir> …`.
struct CorpusOptions {
    // What is wrong with the arguments, to be shown above the usage.
    struct UsageError {
        std::string description;

        bool operator==(const UsageError&) const = default;
    };

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

    // Reads the arguments behind the word "corpus". Pure: prints nothing, never exits.
    static std::expected<CorpusOptions, UsageError> parse(std::span<const std::string> arguments);
};

}
