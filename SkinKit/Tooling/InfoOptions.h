#pragma once

#include <expected>
#include <span>
#include <string>
#include <string_view>

namespace SkinKit {

// The command line that tells everything about one skin: `skintool info [--json] <skin>`.
struct InfoOptions {
    // What is wrong with the arguments, to be shown above the usage.
    struct UsageError {
        std::string description;

        bool operator==(const UsageError&) const = default;
    };

    bool json = false;
    std::string input; // archive or folder

    bool operator==(const InfoOptions&) const = default;

    static const std::string_view usage;

    // Reads the arguments behind the word "info". Pure: prints nothing, never exits.
    static std::expected<InfoOptions, UsageError> parse(std::span<const std::string> arguments);
};

}
