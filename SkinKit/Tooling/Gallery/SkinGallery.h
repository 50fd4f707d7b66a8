#pragma once

#include <cstdint>
#include <expected>
#include <filesystem>
#include <functional>
#include <string>

// A folder of skins as a page of pictures.
namespace SkinKit::SkinGallery {

// How many skins the page shows, and how many of them without a picture.
struct Totals {
    std::int64_t skins = 0;
    std::int64_t refused = 0;

    bool operator==(const Totals&) const = default;
};

// Why there is no page, or not all of it.
struct Error {
    std::string description; // which file, and what is wrong with it

    bool operator==(const Error&) const = default;
};

// What a caller hears of while the gallery is made, by one thread at a time. Each may be empty.
struct Callbacks {
    std::function<void(std::int64_t done, std::int64_t total)> advance; // after each skin
    std::function<void(const std::string&)> note;                       // an unreadable folder
};

// Makes `out`/index.html, which shows every .wsz and .zip file below `skins` in ascending byte
// order of the paths, with a picture each of the window `scale` times as large, and a preview page.
//
// All files of a gallery carry its mark. Files without it are neither overwritten nor deleted:
// where one is in the way, the call fails and writes nothing. Of an earlier gallery in the same
// folder, the pictures and previews that the new one lacks are deleted.
//
// Fails, too, when `skins` can't be read, when there is no picture of that scale, or when something
// can't be written. A folder below `skins` that can't be read is noted and skipped.
std::expected<Totals, Error> make(const std::filesystem::path& skins,
                                  const std::filesystem::path& out, std::int64_t scale,
                                  const Callbacks& callbacks);

}
