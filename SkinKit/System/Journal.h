#pragma once

#include "SkinKit/System/Descriptor.h"
#include "SkinKit/System/Files.h"

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace SkinKit {

// A text file that only grows, a line at a time, each on stable storage before the next. One
// process at a time has it: the lock goes with the process, however that ends.
class Journal {
public:
    // Makes the file when there is none, and leaves one as it is. Fails with
    // std::errc::device_or_resource_busy while another process has it or gives it another name.
    static Files::Result<Journal> open(const std::filesystem::path& path);

    // Bytes.
    std::int64_t size() const { return size_; }

    // Gives a last line that was cut off its missing line feed.
    std::error_code closeCutLine();
    // Cuts the file off behind its first `size` bytes.
    std::error_code cut(std::int64_t size);
    // Adds `line` and a line feed, or nothing. Fails with std::errc::no_such_file_or_directory when
    // the file was deleted, renamed or replaced meanwhile, so that nobody would look for the line
    // in it.
    std::error_code append(std::string_view line);
    // Gives the file another name in its folder, in one step; a file that has that name is
    // replaced. The lock stays.
    std::error_code rename(const std::filesystem::path& path);

private:
    Journal(std::filesystem::path path, Descriptor descriptor)
        : path_(std::move(path)), descriptor_(std::move(descriptor))
    {
    }

    std::error_code lock();
    // Whether the file is the one that its name leads to.
    Files::Result<bool> isAtItsName() const;

    std::filesystem::path path_;
    Descriptor descriptor_;
    std::int64_t size_ = 0;
};

}
