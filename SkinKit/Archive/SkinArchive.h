#pragma once

#include "SkinKit/Archive/SkinError.h"
#include "SkinKit/Base/Bytes.h"
#include "SkinKit/Base/LoadMeter.h"

#include <chrono>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <initializer_list>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace SkinKit {

class ZipFile;
namespace Files {
class InputFile;
}

// The files of one skin, keyed by lower-cased name without folders, as decompressed bytes. Read in
// whole when it is opened; nothing is open afterwards. Never changes, so threads may share it.
class SkinArchive {
public:
    // Bytes by lower-case file name.
    using Table = std::map<std::string, ByteBuffer, std::less<>>;

    // What one archive may cost. An entry that is too large is left out, which is no error; where
    // the time runs out, the archive is rejected. Negative limits are a programming error.
    struct Limits {
        std::int64_t maxEntryBytes = 8 << 20;  // of one file, decompressed
        std::int64_t maxTotalBytes = 64 << 20; // of all accepted files together
        // Lower case, without the dot; files with any other are not read at all.
        std::set<std::string, std::less<>> allowedExtensions = {"bmp", "png", "txt", "cur",
                                                                "ani", "ini", "xml"};
        // Of the calling thread, for opening the archive and parsing the skin together. A thousand
        // times what a real skin takes.
        std::chrono::nanoseconds maxProcessorTime = std::chrono::seconds(4);

        bool operator==(const Limits&) const = default;
    };

    // Reads a ZIP file, or a folder whose regular files (no links, no sub-folders) stand for the
    // entries in ascending byte order of their names. Fails only when it is neither, or cannot be
    // read as what it is; more than 65,535 entries, of an archive as of a folder, count as that.
    // Checksums are not verified: a file that decompresses counts.
    static std::expected<SkinArchive, SkinError> open(const std::filesystem::path& path,
                                                      const Limits& limits);
    static std::expected<SkinArchive, SkinError> open(const std::filesystem::path& path)
    {
        return open(path, Limits{});
    }
    // Reads a ZIP file that is open already.
    static std::expected<SkinArchive, SkinError> open(Files::InputFile file, const Limits& limits);
    // Whether the name is one that archives of skins have: ".wsz" or ".zip" at its end.
    static bool hasSkinName(const std::filesystem::path& file);

    // Reads a ZIP file held in memory.
    static std::expected<SkinArchive, SkinError> open(ByteView bytes, const Limits& limits);
    static std::expected<SkinArchive, SkinError> open(ByteView bytes)
    {
        return open(bytes, Limits{});
    }

    // Whether opening a folder reads a file of that name in it.
    static bool readsFromFolder(std::string_view fileName);

    // An archive of files that somebody already has; names are lower-cased, no limits apply. Of two
    // names that differ only in case the first in byte order is kept.
    explicit SkinArchive(const Table& files);

    // All files that were read.
    const Table& files() const { return files_; }

    // The bytes of base.extension for the first extension that is present, whatever the case of the
    // names. The view is valid while this archive lives.
    std::optional<ByteView> file(std::string_view base,
                                 std::initializer_list<std::string_view> extensions) const;

    // The number of entries in the container, and how many of those that are not folders `files`
    // lacks.
    std::int64_t entryCount() const { return entryCount_; }
    std::int64_t leftOutCount() const { return leftOutCount_; }
    // Of those left out, the files that would have been read but for their encoding.
    struct Unreadable {
        std::int64_t encrypted = 0;
        std::int64_t otherMethod = 0; // compressed otherwise than with deflate
    };
    Unreadable unreadable() const { return unreadable_; }

    // What is left of the processor time for parsing the skin.
    std::chrono::nanoseconds timeLeft() const { return timeLeft_; }

private:
    class Intake;

    SkinArchive() = default;
    static std::expected<SkinArchive, SkinError> openFolder(const std::filesystem::path& path,
                                                            const Limits& limits);
    static std::expected<SkinArchive, SkinError> of(const std::expected<ZipFile, std::string>& zip,
                                                    const Limits& limits);

    Table files_;
    std::int64_t entryCount_ = 0;
    std::int64_t leftOutCount_ = 0;
    Unreadable unreadable_;
    LoadMeter::Time timeLeft_ = LoadMeter::Time::max();
};

}
