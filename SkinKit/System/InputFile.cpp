#include "SkinKit/System/InputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <limits>
#include <string>

namespace SkinKit::Files {
namespace {

std::unexpected<std::error_code> failure(std::errc code)
{
    return std::unexpected(std::make_error_code(code));
}

}

bool isUnsuitableFile(std::error_code error)
{
    const std::errc reasons[] = {std::errc::file_too_large, std::errc::is_a_directory,
                                 std::errc::not_supported, std::errc::no_such_file_or_directory,
                                 std::errc::too_many_symbolic_link_levels};
    return std::ranges::any_of(reasons, [&](std::errc reason) { return error == reason; });
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
    InputFile file(
        Descriptor::open(path.c_str(), links == Links::rejected ? flags | O_NOFOLLOW : flags));
    const int descriptor = file.descriptor_.number();
    struct ::stat status{};
    if (descriptor < 0 || ::fstat(descriptor, &status) != 0)
        return std::unexpected(Descriptor::lastError());
    if (!S_ISREG(status.st_mode))
        return failure(std::errc::not_supported);
    file.size_ = status.st_size;
    return file;
}

std::error_code InputFile::readAt(std::int64_t offset, std::span<std::uint8_t> target) const
{
    while (!target.empty()) {
        const ssize_t count = Descriptor::uninterrupted(
            [&] { return ::pread(descriptor_.number(), target.data(), target.size(), offset); });
        if (count < 0)
            return Descriptor::lastError();
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
        const auto count = descriptor_.readFully(std::span(bytes).subspan(done));
        if (!count)
            return std::unexpected(Descriptor::lastError());
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
    const auto count = descriptor_.readFully(room);
    if (!count)
        return std::unexpected(Descriptor::lastError());
    return *count;
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

}
