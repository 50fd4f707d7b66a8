#include "SkinKit/System/Descriptors.h"

#include <unistd.h>

namespace SkinKit::Descriptors {

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

std::optional<std::size_t> readFully(int descriptor, std::span<std::uint8_t> bytes)
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = uninterrupted(
            [&] { return ::read(descriptor, bytes.data() + done, bytes.size() - done); });
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

std::error_code writeFully(int descriptor, ByteView bytes)
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

}
