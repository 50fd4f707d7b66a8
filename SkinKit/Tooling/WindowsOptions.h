#pragma once

#include "SkinKit/Tooling/SkintoolOptions.h"

#include <cstdint>
#include <expected>
#include <span>
#include <string>
#include <string_view>

namespace SkinKit {

// The command line that draws all windows of one skin: `skintool windows <skin> --out <dir>`.
struct WindowsOptions {
    using State = SkintoolOptions::State;

    // What is wrong with the arguments, to be shown above the usage.
    struct UsageError {
        std::string description;

        bool operator==(const UsageError&) const = default;
    };

    std::string input; // archive or folder
    std::string out;   // folder for the pictures
    std::int64_t scale = 1;
    State state = State::webamp;
    bool noRegion = false;

    bool operator==(const WindowsOptions&) const = default;

    static const std::string_view usage;

    // Reads the arguments behind the word "windows". Pure: prints nothing, never exits.
    static std::expected<WindowsOptions, UsageError> parse(std::span<const std::string> arguments);
};

}
