#include "SkinKit/System/Journal.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <tuple>

namespace SkinKit {
namespace {

// Puts a file's name on stable storage, as far as its folder can be synchronized.
void synchronizeFolder(const std::filesystem::path& folder)
{
    const auto descriptor = Descriptor::open(folder.empty() ? "." : folder.c_str(), O_RDONLY);
    if (descriptor.number() >= 0)
        ::fsync(descriptor.number());
}

}

Files::Result<Journal> Journal::open(const std::filesystem::path& path)
{
    constexpr int flags = O_RDWR | O_CREAT | O_APPEND | O_NONBLOCK;
    Journal journal(path, Descriptor::open(path.c_str(), flags));
    struct ::stat status{};
    if (journal.descriptor_.number() < 0 || ::fstat(journal.descriptor_.number(), &status) != 0)
        return std::unexpected(Descriptor::lastError());
    if (!S_ISREG(status.st_mode))
        return std::unexpected(std::make_error_code(std::errc::not_supported));
    if (const auto error = journal.lock())
        return std::unexpected(error);
    // Looked at again: who had the lock before may have renamed the file or written to it.
    const auto isAtItsName = journal.isAtItsName();
    if (!isAtItsName)
        return std::unexpected(isAtItsName.error());
    if (!*isAtItsName)
        return std::unexpected(std::make_error_code(std::errc::device_or_resource_busy));
    if (::fstat(journal.descriptor_.number(), &status) != 0)
        return std::unexpected(Descriptor::lastError());
    journal.size_ = status.st_size;
    synchronizeFolder(path.parent_path());
    return journal;
}

std::error_code Journal::lock()
{
    if (Descriptor::uninterrupted(
            [&] { return ::flock(descriptor_.number(), LOCK_EX | LOCK_NB); }) == 0)
        return {};
    if (errno == EWOULDBLOCK)
        return std::make_error_code(std::errc::device_or_resource_busy);
    // A file system without locks: go on without.
    return errno == ENOLCK || errno == EOPNOTSUPP || errno == ENOSYS ? std::error_code{}
                                                                     : Descriptor::lastError();
}

Files::Result<bool> Journal::isAtItsName() const
{
    struct ::stat own{};
    struct ::stat named{};
    if (::fstat(descriptor_.number(), &own) != 0)
        return std::unexpected(Descriptor::lastError());
    if (::stat(path_.c_str(), &named) == 0)
        return named.st_dev == own.st_dev && named.st_ino == own.st_ino;
    if (errno == ENOENT)
        return false;
    return std::unexpected(Descriptor::lastError());
}

std::error_code Journal::closeCutLine()
{
    char last = '\n';
    const auto read = [&] { return ::pread(descriptor_.number(), &last, 1, size_ - 1); };
    if (size_ > 0 && Descriptor::uninterrupted(read) < 0)
        return Descriptor::lastError();
    return last == '\n' ? std::error_code{} : append("");
}

std::error_code Journal::cut(std::int64_t size)
{
    if (Descriptor::uninterrupted([&] { return ::ftruncate(descriptor_.number(), size); }) != 0)
        return Descriptor::lastError();
    size_ = size;
    return {};
}

std::error_code Journal::append(std::string_view line)
{
    std::string text(line);
    text += '\n';
    std::error_code error = Descriptor::writeFully(descriptor_.number(), asBytes(text));
    if (!error && Descriptor::uninterrupted([&] { return ::fdatasync(descriptor_.number()); }) != 0)
        error = Descriptor::lastError();
    if (!error) {
        const auto found = isAtItsName();
        if (!found)
            error = found.error();
        else if (!*found)
            error = std::make_error_code(std::errc::no_such_file_or_directory);
    }
    if (error) {
        std::ignore = cut(size_); // a line that may be lost must not be found, either
        return error;
    }
    size_ += std::ssize(text);
    return {};
}

std::error_code Journal::rename(const std::filesystem::path& path)
{
    if (::rename(path_.c_str(), path.c_str()) != 0)
        return Descriptor::lastError();
    // Between two names of one file the call above does nothing.
    if (const auto found = isAtItsName(); found && *found && ::unlink(path_.c_str()) != 0)
        return Descriptor::lastError();
    path_ = path;
    synchronizeFolder(path.parent_path());
    return {};
}

}
