#pragma once

#include "SkinKit/Base/Bytes.h"

#include <cerrno>
#include <cstddef>
#include <optional>
#include <span>
#include <system_error>

// Open files as the system numbers them, and its errors: what the other files here share.
namespace SkinKit::Descriptors {

// Why the last system call of this thread failed.
std::error_code lastError();

// What `call` returns once no signal interrupts it; it says -1 when it fails. Not for close(),
// after which the descriptor is gone either way.
template <typename Call>
auto uninterrupted(const Call& call)
{
    while (true) {
        const auto result = call();
        if (result != -1 || errno != EINTR)
            return result;
    }
}

// Reads until `bytes` is full or the file ends; the number of bytes read, or nothing on an error.
std::optional<std::size_t> readFully(int descriptor, std::span<std::uint8_t> bytes);

std::error_code writeFully(int descriptor, ByteView bytes);

}
