#include "SkinKit/System/Descriptor.h"

#include <fcntl.h>
#include <unistd.h>

namespace SkinKit {

Descriptor::~Descriptor()
{
    if (number_ >= 0)
        ::close(number_);
}

Descriptor Descriptor::open(const char* path, int flags)
{
    constexpr mode_t modeOfNewOnes = 0666;
    return Descriptor(
        uninterrupted([&] { return ::open(path, flags | O_CLOEXEC | O_NOCTTY, modeOfNewOnes); }));
}

std::error_code Descriptor::lastError()
{
    return {errno, std::generic_category()};
}

std::optional<std::size_t> Descriptor::readFully(std::span<std::uint8_t> bytes) const
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = uninterrupted(
            [&] { return ::read(number_, bytes.data() + done, bytes.size() - done); });
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

std::error_code Descriptor::writeFully(int descriptor, ByteView bytes)
{
    while (!bytes.empty()) {
        const ssize_t count =
            uninterrupted([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
        if (count < 0)
            return lastError();
        if (count == 0) // or a device that takes nothing would be asked for ever
            return std::make_error_code(std::errc::io_error);
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return {};
}

std::error_code Descriptor::writeAndClose(ByteView bytes)
{
    const std::error_code error = writeFully(number_, bytes);
    const bool closed = ::close(release()) == 0;
    return error ? error : closed ? std::error_code{} : lastError();
}

}
