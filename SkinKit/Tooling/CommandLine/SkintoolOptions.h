#pragma once

#include "SkinKit/Tooling/CommandLine/CommandLine.h"

#include <cstdint>
#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// The command lines of skintool, except those for collections. Each `parse` reads the arguments
// behind the command's word. It is pure: it prints nothing and never exits.
namespace SkinKit {

// Reads one skin: `skintool [options] <skin>`.
struct SkintoolOptions {
    enum class State { webamp, idle };

    bool verbose = false;
    std::optional<std::string> png; // where to write the picture
    State state = State::webamp;
    std::int64_t scale = 1;
    std::optional<std::string> compare; // folder of reference pictures
    bool noRegion = false;
    std::string input; // archive or folder

    bool operator==(const SkintoolOptions&) const = default;

    static const std::string_view usage;
    static std::expected<SkintoolOptions, UsageError> parse(std::span<const std::string> arguments);
};

// The word on the command line.
std::string_view rawValue(SkintoolOptions::State state);

// Prints everything about one skin: `skintool info <skin>`.
struct InfoOptions {
    bool json = false;
    std::string input; // archive or folder

    bool operator==(const InfoOptions&) const = default;

    static const std::string_view usage;
    static std::expected<InfoOptions, UsageError> parse(std::span<const std::string> arguments);
};

// Draws all windows of one skin: `skintool windows <skin> --out <dir>`.
struct WindowsOptions {
    using State = SkintoolOptions::State;

    std::string input; // archive or folder
    std::string out;   // folder for the pictures
    std::int64_t scale = 1;
    State state = State::webamp;
    bool noRegion = false;

    bool operator==(const WindowsOptions&) const = default;

    static const std::string_view usage;
    static std::expected<WindowsOptions, UsageError> parse(std::span<const std::string> arguments);
};

// Makes a page of one skin: `skintool preview <skin>`.
struct PreviewOptions {
    std::string input;              // archive or folder
    std::optional<std::string> out; // the file to write, when it is not named after the skin
    bool mhtml = false;

    bool operator==(const PreviewOptions&) const = default;

    static const std::string_view usage;
    static std::expected<PreviewOptions, UsageError> parse(std::span<const std::string> arguments);
};

// Shows a folder of skins as one page: `skintool gallery <dir> --out <dir>`.
struct GalleryOptions {
    std::string input; // the folder of the skins
    std::string out;   // the folder of the page
    std::int64_t scale = 1;

    bool operator==(const GalleryOptions&) const = default;

    static const std::string_view usage;
    static std::expected<GalleryOptions, UsageError> parse(std::span<const std::string> arguments);
};

}
