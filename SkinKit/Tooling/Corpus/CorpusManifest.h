#pragma once

#include <expected>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace SkinKit {

// What a museum of skins knows of one.
struct ManifestEntry {
    std::optional<std::string> museumUrl;
    std::optional<bool> nsfw;

    bool operator==(const ManifestEntry&) const = default;
};

// By fingerprint, in lower case.
using CorpusManifest = std::map<std::string, ManifestEntry, std::less<>>;

// Reads a JSON array of objects with the keys "md5", "museum_url" and "nsfw". Of two with the same
// fingerprint the later counts; one without is passed over, and so is a value of another type. What
// is wrong with a text that is no such array.
std::expected<CorpusManifest, std::string> parseManifest(std::string_view json);

}
