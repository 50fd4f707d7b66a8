#pragma once

#include "SkinKit/Base/Bytes.h"

#include <cstdint>
#include <string_view>

// Building bytes by hand.
namespace support {

using SkinKit::ByteBuffer;
using SkinKit::ByteView;

inline ByteBuffer bytes(std::string_view text)
{
    const auto view = SkinKit::asBytes(text);
    return {view.begin(), view.end()};
}

inline void append(ByteBuffer& target, ByteView more)
{
    target.insert(target.end(), more.begin(), more.end());
}

// Little-endian numbers.
inline void append16(ByteBuffer& target, std::uint32_t value)
{
    target.push_back(static_cast<std::uint8_t>(value));
    target.push_back(static_cast<std::uint8_t>(value >> 8));
}
inline void append32(ByteBuffer& target, std::uint32_t value)
{
    append16(target, value);
    append16(target, value >> 16);
}

inline void append64(ByteBuffer& target, std::uint64_t value)
{
    append32(target, static_cast<std::uint32_t>(value));
    append32(target, static_cast<std::uint32_t>(value >> 32));
}

// Overwrites part of what is there.
inline void put32(ByteBuffer& target, std::size_t offset, std::uint32_t value)
{
    for (std::size_t i = 0; i < 4; ++i)
        target[offset + i] = static_cast<std::uint8_t>(value >> (8 * i));
}
inline void put16(ByteBuffer& target, std::size_t offset, std::uint32_t value)
{
    for (std::size_t i = 0; i < 2; ++i)
        target[offset + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

}
