#pragma once

#include "SkinKit/Platform/Bytes.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

struct zip;

namespace SkinKit {

// A ZIP container, read only: its entries in the order of the central directory, and the bytes of
// each as they are stored. Failures are the library's or the system's own text.
class ZipFile {
public:
    static std::expected<ZipFile, std::string> open(const std::filesystem::path& path);
    // The bytes must stay as they are while this lives.
    static std::expected<ZipFile, std::string> open(ByteView bytes);

    enum class Method { stored, deflated, other };

    struct Entry {
        std::string path; // UTF-8; other encodings are taken for code page 437
        bool isRegularFile = false;
        std::int64_t uncompressedBytes = 0; // as declared
        std::int64_t compressedBytes = 0;   // as declared
        Method method = Method::other;
        bool isEncrypted = false;
    };

    // 0 … entryCount() - 1.
    std::int64_t entryCount() const;
    std::optional<Entry> entry(std::int64_t index) const;

    // The entry's first `count` bytes as they lie in the container, not decompressed and with no
    // checksum looked at. Nothing when they are not all there.
    std::optional<ByteBuffer> rawBytes(std::int64_t index, std::int64_t count) const;

private:
    struct Close {
        void operator()(zip* archive) const;
    };

    ByteBuffer bytes_;      // of a file that was read in whole
    std::int64_t size_ = 0; // of the container
    std::unique_ptr<zip, Close> archive_;
};

}
