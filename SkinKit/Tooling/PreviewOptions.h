#pragma once

#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace SkinKit {

// The command line that makes a page of one skin: `skintool preview <skin>`.
struct PreviewOptions {
    // What is wrong with the arguments, to be shown above the usage.
    struct UsageError {
        std::string description;

        bool operator==(const UsageError&) const = default;
    };

    std::string input;              // archive or folder
    std::optional<std::string> out; // the file to write, when it is not named after the skin
    bool mhtml = false;

    bool operator==(const PreviewOptions&) const = default;

    static const std::string_view usage;

    // Reads the arguments behind the word "preview". Pure: prints nothing, never exits.
    static std::expected<PreviewOptions, UsageError> parse(std::span<const std::string> arguments);
};

}
