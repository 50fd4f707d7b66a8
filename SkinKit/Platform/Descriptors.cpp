#include "SkinKit/Platform/Descriptors.h"

#include <unistd.h>

#include <cerrno>

namespace SkinKit::Descriptors {

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

std::optional<std::size_t> readFully(int descriptor, std::span<std::uint8_t> bytes)
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = ::read(descriptor, bytes.data() + done, bytes.size() - done);
        if (count == 0)
            break;
        if (count > 0)
            done += static_cast<std::size_t>(count);
        else if (errno != EINTR)
            return std::nullopt;
    }
    return done;
}

std::error_code writeFully(int descriptor, ByteView bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count >= 0)
            bytes = bytes.subspan(static_cast<std::size_t>(count));
        else if (errno != EINTR)
            return lastError();
    }
    return {};
}

}
