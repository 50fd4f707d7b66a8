#pragma once

#include "SkinKit/Base/Bytes.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <functional>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

// Reading and writing files. Names are bytes, as the system has them. Only regular files and
// folders are ever opened for reading: a pipe, a device or a socket is refused without waiting for
// it.
namespace SkinKit::Files {

template <typename T>
using Result = std::expected<T, std::error_code>;

enum class Kind { regularFile, folder, other };

// What `path` leads to, links followed.
Result<Kind> kind(const std::filesystem::path& path);

// The day on which a file was last written, by the local clock: "2024-02-29".
Result<std::string> dateOf(const std::filesystem::path& path);

// Whether a file was not read because of what it is (too large, no regular file, a link, gone), and
// not because reading failed.
bool isUnsuitableFile(std::error_code error);

// The path by whose last component a person knows the file: without slashes at its end, and with a
// "." or ".." there followed to what it leads to.
std::filesystem::path named(const std::filesystem::path& path);

// Whether a name that is itself a link may be opened.
enum class Links { followed, refused };

// An open file's number, closed at the end of its life.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(other.release()) {}
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor();

    // Negative when nothing is open.
    int number() const { return number_; }
    // Gives it to the caller, who then closes it.
    int release() { return std::exchange(number_, -1); }

private:
    int number_;
};

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
    explicit InputFile(int descriptor) : descriptor_(descriptor) {}

    Descriptor descriptor_;
    std::int64_t size_ = 0;
};

// A file to be written where it stands, never replaced: for whoever has an eye on this very file
// and not on its name. Made, or emptied, when it is opened; what is written in part only is taken
// back, so that a file which is not whole is empty.
class OutputFile {
public:
    static Result<OutputFile> open(const std::filesystem::path& path);

    int descriptor() const { return descriptor_.number(); }

    // Writes everything and closes the file.
    std::error_code write(ByteView bytes) &&;

private:
    explicit OutputFile(int descriptor) : descriptor_(descriptor) {}

    Descriptor descriptor_;
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

// What stands under one name in a folder.
struct FolderEntry {
    std::string name;
    bool isRegularFile = false; // itself, not what a link leads to
    bool isFolder = false;      // likewise
    std::int64_t size = 0;      // unless only the kinds were asked for

    bool operator==(const FolderEntry&) const = default;
};

// The kinds alone cost much less: most file systems have them at hand with the names.
enum class Details { all, kinds };

// What stands directly in a folder, in ascending byte order of the names. Fails with
// std::errc::file_too_large when it is more than `maxEntries`.
Result<std::vector<FolderEntry>>
list(const std::filesystem::path& folder,
     std::int64_t maxEntries = std::numeric_limits<std::int64_t>::max(),
     Details details = Details::all);

// Writes `bytes` to `path`, links followed. A regular file, or one yet to be made, is replaced in
// one step, so that nobody ever sees half of it and an error leaves it as it was (nothing is forced
// to the disk: a power cut may still lose it). A new file gets the permissions that the umask
// leaves; an old one keeps its permissions, not its owner. Anything else (a device, a pipe) is
// written in place, and so is what is open already, named /dev/stdout, /dev/fd/N or the like.
std::error_code write(const std::filesystem::path& path, ByteView bytes);

}
