#pragma once

#include "SkinKit/System/Files.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace SkinKit {

// A listed file of a collection.
struct CorpusFile {
    // Below the collection's folder, as text: what is not UTF-8 is replaced. No two files of a
    // listing have the same.
    std::string path;
    std::optional<std::string> md5; // absent when the file could not be read
    std::optional<std::int64_t> size;
    // The path's own bytes, when `path` is not them.
    std::optional<std::string> pathBytes;

    bool operator==(const CorpusFile&) const = default;

    // Where it is, below the collection's folder.
    std::filesystem::path location() const { return pathBytes.value_or(path); }
    // The file's name without its extension, as text.
    std::string name() const;
};

// The skins of a collection, in a fixed order.
namespace CorpusListing {

// A folder that could not be read, and why.
struct UnreadFolder {
    std::filesystem::path path; // below the collection's folder
    std::error_code error;
};

// What was found below a folder.
struct Scan {
    std::vector<CorpusFile> files; // without fingerprints
    std::vector<UnreadFolder> unreadFolders;
};

// All regular files below `folder` whose extension is wsz or zip in any case, in ascending byte
// order of their paths. What begins with a dot is passed over, links are not followed except for
// `folder` itself. Fails when `folder` can't be read; a folder below it is told of instead.
Files::Result<Scan> scan(const std::filesystem::path& folder);

// Files below a folder that a listing lacks.
struct NewFiles {
    std::int64_t count = 0;
    std::vector<UnreadFolder> unreadFolders;
};

// The files that a scan of `folder` would find and `listed` lacks. Faster than a scan.
Files::Result<NewFiles> findNew(const std::filesystem::path& folder,
                                const std::vector<CorpusFile>& listed);

// The fingerprint of a whole file, or nothing when it can't be read.
std::optional<std::string> md5Hex(const std::filesystem::path& file);

// As a JSON array, a file a line, and back; nothing when a text is no such listing. The bytes of a
// path stand under the key "pathBytes" in hexadecimal.
std::string json(const std::vector<CorpusFile>& files);
std::optional<std::vector<CorpusFile>> parse(std::string_view json);
// The listing in a file; nothing when the file is missing or no listing.
Files::Result<std::optional<std::vector<CorpusFile>>> read(const std::filesystem::path& file);

}

}
