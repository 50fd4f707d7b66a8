#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace SkinKit {

// The command line that reads one skin: `skintool [options] <skin>`.
struct SkintoolOptions {
    enum class State { webamp, idle };

    // What is wrong with the arguments, to be shown above the usage.
    struct UsageError {
        std::string description;

        bool operator==(const UsageError&) const = default;
    };

    bool verbose = false;
    std::optional<std::string> png; // where to write the picture
    State state = State::webamp;
    std::int64_t scale = 1;
    std::optional<std::string> compare; // folder of reference pictures
    bool noRegion = false;
    std::string input; // archive or folder

    bool operator==(const SkintoolOptions&) const = default;

    static const std::string_view usage;

    // The state that a word names, exactly so.
    static std::optional<State> parseState(std::string_view word);

    // Reads the arguments behind the program's name. Pure: prints nothing, never exits.
    static std::expected<SkintoolOptions, UsageError> parse(std::span<const std::string> arguments);
};

std::string_view rawValue(SkintoolOptions::State state);

}
