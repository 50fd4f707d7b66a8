#pragma once

#include "SkinKit/Platform/Files.h"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace SkinKit {

// A text file that only grows, a line at a time, each on stable storage before the next. One
// process at a time has it: the lock goes with the process, however that ends.
class Journal {
public:
    enum class Content { emptied, kept };

    // Makes the file when there is none. A kept one that was cut off in the middle of a line gets
    // the missing line feed. Fails with std::errc::device_or_resource_busy while another process
    // has it, and then leaves it as it was.
    static Files::Result<Journal> open(const std::filesystem::path& path, Content content);

    Journal(Journal&& other) noexcept;
    Journal& operator=(Journal&&) = delete;
    ~Journal();

    // Adds `line` and a line feed. What could not be written in whole may be there in part. Fails
    // with std::errc::no_such_file_or_directory when the file was deleted meanwhile, so that what
    // is written would be lost.
    std::error_code append(std::string_view line);

private:
    explicit Journal(int descriptor) : descriptor_(descriptor) {}

    std::error_code lock();
    std::error_code closeCutLine();

    int descriptor_;
};

}
