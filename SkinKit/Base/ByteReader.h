#pragma once

#include "SkinKit/Base/Bytes.h"

#include <cstdint>
#include <optional>

namespace SkinKit {

// A little-endian cursor over somebody else's bytes. A read that the bytes left are too short for
// gives nothing, as does one from a negative offset; where the cursor stands then has no meaning.
class ByteReader {
public:
    explicit ByteReader(ByteView bytes, std::int64_t offset = 0) : bytes_(bytes), offset_(offset) {}

    // Bytes before the cursor, and behind it.
    std::int64_t offset() const { return offset_; }
    std::int64_t remaining() const { return std::ssize(bytes_) - offset_; }

    // The next number, the lowest byte first.
    std::optional<std::uint16_t> u16()
    {
        const auto part = bytes(2);
        if (!part)
            return std::nullopt;
        return static_cast<std::uint16_t>((*part)[0] | (*part)[1] << 8);
    }
    // The next number, the lowest byte first.
    std::optional<std::uint32_t> u32()
    {
        const auto part = bytes(4);
        if (!part)
            return std::nullopt;
        return static_cast<std::uint32_t>((*part)[0]) |
               static_cast<std::uint32_t>((*part)[1]) << 8 |
               static_cast<std::uint32_t>((*part)[2]) << 16 |
               static_cast<std::uint32_t>((*part)[3]) << 24;
    }
    // The next `count` bytes, in place. None at the very end is still a success.
    std::optional<ByteView> bytes(std::int64_t count)
    {
        if (offset_ < 0 || count < 0 || count > remaining())
            return std::nullopt;
        const auto part =
            bytes_.subspan(static_cast<std::size_t>(offset_), static_cast<std::size_t>(count));
        offset_ += count;
        return part;
    }

private:
    ByteView bytes_;
    std::int64_t offset_;
};

}
