#include "SkinKit/System/Files.h"

#include "SkinKit/Base/Numbers.h"
#include "SkinKit/System/Descriptors.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <limits>
#include <memory>
#include <optional>
#include <utility>

namespace SkinKit::Files {
namespace {

using Descriptors::lastError;
using Descriptors::readFully;
using Descriptors::uninterrupted;
using Descriptors::writeFully;

constexpr int maxLinks = 40; // as the system itself allows

std::unexpected<std::error_code> failure(std::errc code)
{
    return std::unexpected(std::make_error_code(code));
}

int openFile(const char* path, int flags)
{
    constexpr mode_t modeOfNewOnes = 0666;
    return uninterrupted([&] { return ::open(path, flags | O_CLOEXEC | O_NOCTTY, modeOfNewOnes); });
}

// Writes and closes, telling of the first thing that failed: some file systems report a full disk
// only on closing.
std::error_code writeAndClose(int descriptor, ByteView bytes)
{
    const std::error_code error = writeFully(descriptor, bytes);
    const bool closed = ::close(descriptor) == 0;
    return error ? error : closed ? std::error_code{} : lastError();
}

// The open descriptor that `path` is a name of: itself or at the end of links, /dev/fd/N or
// /proc/self/fd/N.
std::optional<int> openDescriptor(std::filesystem::path path)
{
    for (int i = 0; i < maxLinks; ++i) {
        const auto folder = path.parent_path();
        if (folder == "/dev/fd" || folder == "/proc/self/fd")
            return Numbers::parseInteger<int>(path.filename().string());
        std::error_code error;
        const auto target = std::filesystem::read_symlink(path, error);
        if (error)
            return std::nullopt;
        path = folder / target;
    }
    return std::nullopt;
}

// The descriptor of standard output or standard error, when they go to `file`: replaced, it would
// lose what else is printed.
std::optional<int> standardStream(const struct ::stat& file)
{
    for (const int descriptor : {STDOUT_FILENO, STDERR_FILENO}) {
        struct ::stat stream{};
        if (::fstat(descriptor, &stream) == 0 && stream.st_dev == file.st_dev &&
            stream.st_ino == file.st_ino)
            return descriptor;
    }
    return std::nullopt;
}

std::error_code writeInPlace(const char* path, ByteView bytes)
{
    const int descriptor = openFile(path, O_WRONLY);
    return descriptor < 0 ? lastError() : writeAndClose(descriptor, bytes);
}

// Where `path` leads in the end, through links whose target need not exist yet.
Result<std::filesystem::path> followLinks(std::filesystem::path path)
{
    for (int i = 0; i < maxLinks; ++i) {
        std::error_code error;
        const auto target = std::filesystem::read_symlink(path, error);
        const bool isNoLink =
            error == std::errc::invalid_argument || error == std::errc::no_such_file_or_directory;
        if (isNoLink)
            return path;
        if (error)
            return std::unexpected(error);
        path = path.parent_path() / target;
    }
    return failure(std::errc::too_many_symbolic_link_levels);
}

// A new file beside `target`; its name, short however long the target's is, goes to `name`.
int makeNeighbour(const std::filesystem::path& target, std::string& name)
{
    constexpr int maxTries = 100;
    for (int i = 0; i < maxTries; ++i) {
        name = target.parent_path() /
               (".skinkit-" + std::to_string(::getpid()) + "." + std::to_string(i) + ".tmp");
        const int descriptor = openFile(name.c_str(), O_WRONLY | O_CREAT | O_EXCL);
        if (descriptor >= 0 || errno != EEXIST)
            return descriptor;
    }
    return -1;
}

std::error_code replace(const std::filesystem::path& target, ByteView bytes,
                        std::optional<mode_t> mode)
{
    std::string neighbour;
    const int descriptor = makeNeighbour(target, neighbour);
    if (descriptor < 0)
        return lastError();

    std::error_code error;
    if (mode && ::fchmod(descriptor, *mode) != 0)
        error = lastError();
    const auto written = writeAndClose(descriptor, bytes);
    if (!error)
        error = written;
    if (!error && ::rename(neighbour.c_str(), target.c_str()) != 0)
        error = lastError();
    if (error)
        ::unlink(neighbour.c_str());
    return error;
}

}

Result<Kind> kind(const std::filesystem::path& path)
{
    struct ::stat file{};
    if (::stat(path.c_str(), &file) != 0)
        return std::unexpected(lastError());
    return S_ISREG(file.st_mode)   ? Kind::regularFile
           : S_ISDIR(file.st_mode) ? Kind::folder
                                   : Kind::other;
}

Result<std::string> dateOf(const std::filesystem::path& path)
{
    struct ::stat file{};
    if (::stat(path.c_str(), &file) != 0)
        return std::unexpected(lastError());
    struct ::tm time{};
    char date[32];
    if (!::localtime_r(&file.st_mtime, &time) ||
        std::strftime(date, sizeof date, "%Y-%m-%d", &time) == 0)
        return failure(std::errc::value_too_large);
    return date;
}

bool isUnsuitableFile(std::error_code error)
{
    const std::errc reasons[] = {std::errc::file_too_large, std::errc::is_a_directory,
                                 std::errc::not_supported, std::errc::no_such_file_or_directory,
                                 std::errc::too_many_symbolic_link_levels};
    return std::ranges::any_of(reasons, [&](std::errc reason) { return error == reason; });
}

std::filesystem::path named(const std::filesystem::path& path)
{
    auto whole = path.has_filename() ? path : path.parent_path();
    if (whole.has_filename() && whole.filename() != "." && whole.filename() != "..")
        return whole;
    std::error_code ignored;
    return std::filesystem::weakly_canonical(path, ignored);
}

Descriptor::~Descriptor()
{
    if (number_ >= 0)
        ::close(number_);
}

Result<InputFile> InputFile::open(const std::filesystem::path& path, Links links)
{
    // Looked at before it is opened, since opening a device can have effects of its own; not
    // waiting covers a file that turns into a pipe in between.
    const auto found = kind(path);
    if (!found)
        return std::unexpected(found.error());
    if (*found == Kind::folder)
        return failure(std::errc::is_a_directory);
    if (*found != Kind::regularFile)
        return failure(std::errc::not_supported);

    const int flags = O_RDONLY | O_NONBLOCK;
    InputFile file(openFile(path.c_str(), links == Links::refused ? flags | O_NOFOLLOW : flags));
    const int descriptor = file.descriptor_.number();
    struct ::stat status{};
    if (descriptor < 0 || ::fstat(descriptor, &status) != 0)
        return std::unexpected(lastError());
    if (!S_ISREG(status.st_mode))
        return failure(std::errc::not_supported);
    file.size_ = status.st_size;
    return file;
}

std::error_code InputFile::readAt(std::int64_t offset, std::span<std::uint8_t> target) const
{
    while (!target.empty()) {
        const ssize_t count = uninterrupted(
            [&] { return ::pread(descriptor_.number(), target.data(), target.size(), offset); });
        if (count < 0)
            return lastError();
        if (count == 0)
            return std::make_error_code(std::errc::io_error);
        target = target.subspan(static_cast<std::size_t>(count));
        offset += count;
    }
    return {};
}

Result<ByteBuffer> InputFile::read(std::int64_t maxBytes)
{
    // The size said is only where to start: a file may grow while it is read, and those under /proc
    // say 0. One byte over it tells whether there is more.
    constexpr std::int64_t smallestStep = 4096;
    maxBytes = std::min(maxBytes, std::numeric_limits<std::int64_t>::max() - 1);
    ByteBuffer bytes;
    std::int64_t wanted = std::min(std::max(size_, smallestStep), maxBytes) + 1;
    while (true) {
        const std::size_t done = bytes.size();
        bytes.resize(static_cast<std::size_t>(wanted));
        const auto count = readFully(descriptor_.number(), std::span(bytes).subspan(done));
        if (!count)
            return std::unexpected(lastError());
        bytes.resize(done + *count);
        if (std::ssize(bytes) > maxBytes)
            return failure(std::errc::file_too_large);
        if (std::ssize(bytes) < wanted) {
            if (bytes.size() < bytes.capacity() / 2)
                bytes.shrink_to_fit(); // thousands of small files may be kept at once
            return bytes;
        }
        wanted = std::min(2 * wanted, maxBytes + 1);
    }
}

Result<std::size_t> InputFile::readNext(std::span<std::uint8_t> room)
{
    const auto count = readFully(descriptor_.number(), room);
    if (!count)
        return std::unexpected(lastError());
    return *count;
}

Result<OutputFile> OutputFile::open(const std::filesystem::path& path)
{
    OutputFile file(openFile(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC));
    if (file.descriptor() < 0)
        return std::unexpected(lastError());
    return file;
}

std::error_code OutputFile::write(ByteView bytes) &&
{
    if (const auto error = writeFully(descriptor(), bytes)) {
        // What can't be emptied, a pipe say, has been read already.
        [[maybe_unused]] const int ignored = ::ftruncate(descriptor(), 0);
        return error;
    }
    return ::close(descriptor_.release()) == 0 ? std::error_code{} : lastError();
}

Result<ByteBuffer> read(const std::filesystem::path& path, std::int64_t maxBytes, Links links)
{
    auto file = InputFile::open(path, links);
    if (!file)
        return std::unexpected(file.error());
    return file->read(maxBytes);
}

std::error_code forEachLine(const std::filesystem::path& path,
                            const std::function<void(std::string_view)>& take)
{
    auto file = InputFile::open(path, Links::followed);
    if (!file)
        return file.error();
    ByteBuffer room(1 << 16);
    std::string cut; // the part so far of a line that goes on in the next piece
    bool isTooLong = false;
    const auto keep = [&](std::string_view part) {
        isTooLong = isTooLong || std::ssize(cut) + std::ssize(part) > maxLineBytes;
        if (isTooLong)
            cut.clear();
        else
            cut += part;
    };
    while (true) {
        const auto count = file->readNext(room);
        if (!count)
            return count.error();
        if (*count == 0)
            break;
        std::string_view piece = asText(room).substr(0, *count);
        for (auto end = piece.find('\n'); end != piece.npos; end = piece.find('\n')) {
            const auto line = piece.substr(0, end);
            const bool isWhole = cut.empty() && !isTooLong;
            if (!isWhole)
                keep(line);
            if (!isTooLong)
                take(isWhole ? line : cut);
            cut.clear();
            isTooLong = false;
            piece.remove_prefix(end + 1);
        }
        keep(piece);
    }
    if (!cut.empty())
        take(cut);
    return {};
}

Result<std::vector<FolderEntry>> list(const std::filesystem::path& folder, std::int64_t maxEntries,
                                      Details details)
{
    const auto close = [](DIR* directory) { ::closedir(directory); };
    Descriptor descriptor(openFile(folder.c_str(), O_RDONLY | O_DIRECTORY));
    if (descriptor.number() < 0)
        return std::unexpected(lastError());
    const std::unique_ptr<DIR, decltype(close)> directory(::fdopendir(descriptor.number()), close);
    if (!directory)
        return std::unexpected(lastError());
    descriptor.release();

    std::vector<FolderEntry> entries;
    while (true) {
        errno = 0;
        const dirent* const found = ::readdir(directory.get());
        if (!found && errno != 0)
            return std::unexpected(lastError());
        if (!found)
            break;
        const std::string name = found->d_name;
        if (name == "." || name == "..")
            continue;
        if (std::ssize(entries) == maxEntries)
            return failure(std::errc::file_too_large);
        if (details == Details::kinds && found->d_type != DT_UNKNOWN) {
            entries.push_back({name, found->d_type == DT_REG, found->d_type == DT_DIR});
            continue;
        }
        struct ::stat status{};
        if (::fstatat(::dirfd(directory.get()), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0)
            entries.push_back(
                {name, S_ISREG(status.st_mode), S_ISDIR(status.st_mode), status.st_size});
        else if (errno != ENOENT) // gone since
            return std::unexpected(lastError());
    }
    std::ranges::sort(entries, {}, &FolderEntry::name);
    return entries;
}

std::error_code write(const std::filesystem::path& path, ByteView bytes)
{
    if (const auto descriptor = openDescriptor(path))
        return writeFully(*descriptor, bytes);

    struct ::stat file{};
    if (::stat(path.c_str(), &file) != 0) {
        if (errno != ENOENT)
            return lastError();
        const auto target = followLinks(path);
        return target ? replace(*target, bytes, std::nullopt) : target.error();
    }
    if (const auto stream = standardStream(file))
        return writeFully(*stream, bytes);
    if (!S_ISREG(file.st_mode))
        return writeInPlace(path.c_str(), bytes);

    const auto target = followLinks(path);
    return target ? replace(*target, bytes, file.st_mode & 07777) : target.error();
}

}
