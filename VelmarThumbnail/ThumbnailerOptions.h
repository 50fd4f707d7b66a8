#pragma once

#include "SkinKit/Tooling/CommandLine/CommandLine.h"

#include <expected>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace VelmarThumbnail {

// The command line `velmar-thumbnailer [-s SIZE] INPUT OUTPUT`.
struct ThumbnailerOptions {
    static constexpr int smallestSize = 1;
    static constexpr int largestSize = 4096;

    int size = 128;               // pixels: the most that either side may have
    std::filesystem::path input;  // archive or folder; a file URI has become its path
    std::filesystem::path output; // what the picture is written into

    bool operator==(const ThumbnailerOptions&) const = default;

    static const std::string_view usage;

    // Pure: prints nothing, never exits.
    static std::expected<ThumbnailerOptions, SkinKit::UsageError>
    parse(std::span<const std::string> arguments);
};

}
