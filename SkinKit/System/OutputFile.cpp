#include "SkinKit/System/OutputFile.h"

#include "SkinKit/Base/Numbers.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>

namespace SkinKit::Files {
namespace {

// Whether a path is a name of an open descriptor, such as what /dev/stdout leads to.
bool isDescriptor(const std::filesystem::path& path)
{
    return path.parent_path() == "/dev/fd" || path.parent_path() == "/proc/self/fd";
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

// A new file beside `target`; its name, short however long the target's is, goes to `name`.
Descriptor makeNeighbour(const std::filesystem::path& target, std::string& name)
{
    constexpr int maxTries = 100;
    for (int i = 0; i < maxTries; ++i) {
        name = target.parent_path() /
               (".skinkit-" + std::to_string(::getpid()) + "." + std::to_string(i) + ".tmp");
        auto descriptor = Descriptor::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL);
        if (descriptor.number() >= 0 || errno != EEXIST)
            return descriptor;
    }
    return Descriptor(-1);
}

std::error_code replace(const std::filesystem::path& target, ByteView bytes,
                        std::optional<mode_t> mode)
{
    std::string neighbour;
    auto descriptor = makeNeighbour(target, neighbour);
    if (descriptor.number() < 0)
        return Descriptor::lastError();

    std::error_code error;
    if (mode && ::fchmod(descriptor.number(), *mode) != 0)
        error = Descriptor::lastError();
    const auto written = descriptor.writeAndClose(bytes);
    if (!error)
        error = written;
    if (!error && ::rename(neighbour.c_str(), target.c_str()) != 0)
        error = Descriptor::lastError();
    if (error)
        ::unlink(neighbour.c_str());
    return error;
}

}

Result<OutputFile> OutputFile::open(const std::filesystem::path& path)
{
    OutputFile file(Descriptor::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC));
    if (file.descriptor() < 0)
        return std::unexpected(Descriptor::lastError());
    return file;
}

std::error_code OutputFile::write(ByteView bytes) &&
{
    if (const auto error = Descriptor::writeFully(descriptor(), bytes)) {
        // What can't be emptied, a pipe say, has been read already.
        [[maybe_unused]] const int ignored = ::ftruncate(descriptor(), 0);
        return error;
    }
    return ::close(descriptor_.release()) == 0 ? std::error_code{} : Descriptor::lastError();
}

std::error_code write(const std::filesystem::path& path, ByteView bytes)
{
    const auto target = followLinks(path, isDescriptor);
    if (target && isDescriptor(*target))
        if (const auto descriptor = Numbers::parseInteger<int>(target->filename().string()))
            return Descriptor::writeFully(*descriptor, bytes);

    struct ::stat file{};
    const bool exists = ::stat(path.c_str(), &file) == 0;
    if (!exists && errno != ENOENT)
        return Descriptor::lastError();
    if (exists) {
        if (const auto stream = standardStream(file))
            return Descriptor::writeFully(*stream, bytes);
        if (!S_ISREG(file.st_mode)) {
            auto descriptor = Descriptor::open(path.c_str(), O_WRONLY);
            return descriptor.number() < 0 ? Descriptor::lastError()
                                           : descriptor.writeAndClose(bytes);
        }
    }
    if (!target)
        return target.error();
    constexpr mode_t permissions = 07777;
    return replace(*target, bytes,
                   exists ? std::optional(file.st_mode & permissions) : std::nullopt);
}

}
