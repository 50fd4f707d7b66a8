#pragma once

#include "SkinKit/System/Descriptor.h"
#include "SkinKit/System/Files.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

// Reading files. Only regular files are opened: a pipe, a device or a socket is rejected without
// waiting for it.
namespace SkinKit::Files {

// Whether a name that is itself a link may be opened.
enum class Links { followed, rejected };

// A regular file open for reading.
class InputFile {
public:
    static Result<InputFile> open(const std::filesystem::path& path, Links links);

    // Its size when it was opened, in bytes.
    std::int64_t size() const { return size_; }

    int descriptor() const { return descriptor_.number(); }

    // The whole file. Fails with std::errc::file_too_large when it holds more than `maxBytes`,
    // whatever its size was said to be.
    Result<ByteBuffer> read(std::int64_t maxBytes);

    // The next bytes, as many as there is room for unless the file ends; how many they were.
    Result<std::size_t> readNext(std::span<std::uint8_t> room);

    // Fills `target` with what begins at `offset`; an error, too, where the file ends before.
    std::error_code readAt(std::int64_t offset, std::span<std::uint8_t> target) const;

private:
    explicit InputFile(Descriptor descriptor) : descriptor_(std::move(descriptor)) {}

    Descriptor descriptor_;
    std::int64_t size_ = 0;
};

Result<ByteBuffer> read(const std::filesystem::path& path, std::int64_t maxBytes,
                        Links links = Links::followed);

// The longest line that is looked at: one so long comes from no text.
inline constexpr std::int64_t maxLineBytes = 4 << 20;

// Gives each line of a regular file, without its line feed, to `take` while the file is read piece
// by piece. What is behind the last line feed is a line too, unless it is empty. Lines longer than
// the maximum are passed over.
std::error_code forEachLine(const std::filesystem::path& path,
                            const std::function<void(std::string_view line)>& take);

// Whether a file was not read because of what it is (too large, no regular file, a link, gone), and
// not because reading failed.
bool isUnsuitableFile(std::error_code error);

}
