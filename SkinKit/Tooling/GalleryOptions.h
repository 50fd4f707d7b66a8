#pragma once

#include <cstdint>
#include <expected>
#include <span>
#include <string>
#include <string_view>

namespace SkinKit {

// The command line that shows a folder of skins as one page: `skintool gallery <dir> --out <dir>`.
struct GalleryOptions {
    // What is wrong with the arguments, to be shown above the usage.
    struct UsageError {
        std::string description;

        bool operator==(const UsageError&) const = default;
    };

    std::string input; // the folder of the skins
    std::string out;   // the folder of the page
    std::int64_t scale = 1;

    bool operator==(const GalleryOptions&) const = default;

    static const std::string_view usage;

    // Reads the arguments behind the word "gallery". Pure: prints nothing, never exits.
    static std::expected<GalleryOptions, UsageError> parse(std::span<const std::string> arguments);
};

}
