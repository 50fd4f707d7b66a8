#pragma once

#include "SkinKit/Platform/Bytes.h"

#include <cstddef>
#include <optional>
#include <span>
#include <system_error>

// Open files as the system numbers them, and its errors: what the other files here share.
namespace SkinKit::Descriptors {

// Why the last system call of this thread failed.
std::error_code lastError();

// Reads until `bytes` is full or the file ends; the number of bytes read, or nothing on an error.
std::optional<std::size_t> readFully(int descriptor, std::span<std::uint8_t> bytes);

std::error_code writeFully(int descriptor, ByteView bytes);

}
