#pragma once

#include "SkinKit/Tooling/Corpus/CorpusRecord.h"

#include <expected>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace SkinKit {

// What a museum of skins knows of them.
struct CorpusManifest {
    struct Entry {
        std::optional<std::string> museumUrl;
        std::optional<bool> nsfw;

        bool operator==(const Entry&) const = default;
    };

    std::map<std::string, Entry, std::less<>> byMD5; // in lower case

    bool operator==(const CorpusManifest&) const = default;

    // Reads a JSON array of objects with the keys "md5", "museum_url" and "nsfw". Of two with the
    // same MD5 the later counts; one without is skipped, and so is a value of another type. The
    // error says what is wrong with a text that is no such array, or with the file.
    static std::expected<CorpusManifest, std::string> parse(std::string_view json);
    static std::expected<CorpusManifest, std::string> read(const std::filesystem::path& file);

    // The record with what is known of its MD5.
    CorpusRecord decorated(CorpusRecord record) const;
};

}
