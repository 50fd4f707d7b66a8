#pragma once

#include "tests/support/Bytes.h"

#include <filesystem>
#include <string_view>

namespace support {

// A folder of its own for one test, gone with everything in it at the end.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

    // Writes a file below it and gives its path.
    std::filesystem::path write(std::string_view name, ByteView content) const;

private:
    std::filesystem::path path_;
};

// A whole file; throws when it can't be read.
ByteBuffer readFile(const std::filesystem::path& path);

}
