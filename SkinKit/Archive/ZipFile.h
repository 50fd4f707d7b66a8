#pragma once

#include "SkinKit/Archive/ByteSource.h"
#include "SkinKit/Base/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace SkinKit {

// A ZIP container, read only: its entries in the order of the central directory, and the bytes of
// each as they are stored. It reads what is there: bytes before the archive and behind it, entries
// after which the directory is damaged, headers that contradict the directory are no failure.
class ZipFile {
public:
    // An archive with more entries is rejected, and so is a directory of more than 16 MiB.
    static constexpr std::int64_t maxEntries = 65'535;

    // Fails with a text that says why.
    static std::expected<ZipFile, std::string> open(const std::filesystem::path& path);
    static std::expected<ZipFile, std::string> open(Files::InputFile file);
    // The bytes must stay as they are while this lives.
    static std::expected<ZipFile, std::string> open(ByteView bytes);

    enum class Method { stored, deflated, other };

    struct Entry {
        ByteView name; // the path as stored, valid while the ZipFile lives
        bool isRegularFile = false;
        bool isFolder = false;
        std::int64_t uncompressedBytes = 0; // as declared
        std::int64_t compressedBytes = 0;   // as declared
        Method method = Method::other;
        bool isEncrypted = false;
        std::int64_t offset = 0; // where it begins in the container, as declared

        // The path in UTF-8; other encodings are read as code page 437.
        std::string path() const;
    };

    const std::vector<Entry>& entries() const { return entries_; }

    // The entry's compressed bytes as they lie in the container, with no checksum looked at, or
    // nothing when they are not all there. They may be read into `buffer`; the view is valid while
    // that stays as it is and this lives.
    std::optional<ByteView> rawBytes(const Entry& entry, ByteBuffer& buffer) const;

    // Why bytes that the container's file has could not be read, the last time that happened.
    std::error_code readError() const { return source_.readError(); }

private:
    explicit ZipFile(ByteSource source) : source_(std::move(source)) {}

    static std::expected<ZipFile, std::string> open(ByteSource source);
    // Why the entries can't be read; nothing when they were.
    std::optional<std::string> readDirectory();

    ByteSource source_;
    ByteBuffer directory_; // where the source doesn't hold it in memory
    std::vector<Entry> entries_;
};

}
