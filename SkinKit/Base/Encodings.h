#pragma once

#include "SkinKit/Base/Bytes.h"

#include <charconv>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

struct MD5Context;

// Bytes as plain letters and digits, and what identifies them.
namespace SkinKit {

// Hexadecimal digits.
namespace Hex {

inline constexpr std::string_view lowerCase = "0123456789abcdef";
inline constexpr std::string_view upperCase = "0123456789ABCDEF";

// Two digits for the byte, out of one of these sets.
inline void append(std::string& text, std::uint8_t byte, std::string_view digits)
{
    text += digits[byte >> 4];
    text += digits[byte & 0xF];
}

// The number that the text is, in digits of either case and nothing else.
inline std::optional<std::uint32_t> parse(std::string_view text)
{
    std::uint32_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, 16);
    return error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

// Two lower-case digits for each byte, and back.
inline std::string encoded(ByteView bytes)
{
    std::string hex;
    for (const std::uint8_t byte : bytes)
        append(hex, byte, lowerCase);
    return hex;
}

inline std::optional<std::string> decoded(std::string_view hex)
{
    std::string bytes;
    for (; hex.size() >= 2; hex.remove_prefix(2)) {
        const auto byte = parse(hex.substr(0, 2));
        if (!byte)
            return std::nullopt;
        bytes += static_cast<char>(*byte);
    }
    return hex.empty() ? std::optional(std::move(bytes)) : std::nullopt;
}

}

// For documents that contain pictures as text.
namespace Base64 {

// Four characters for every three bytes, the last ones padded with "=".
std::string encoded(ByteView bytes);

// The same in lines of at most 76 characters, each ended by "\r\n", as mail wants it.
std::string encodedLines(ByteView bytes);

}

// The MD5 message digest (RFC 1321): a fingerprint that tells files apart; it protects nothing.
class MD5 {
public:
    MD5();
    ~MD5();

    // The next bytes of the message.
    void add(ByteView bytes);
    // The digest of all of them, as 32 lower-case hexadecimal digits. Once, at the end.
    std::string hexDigest();

private:
    std::unique_ptr<MD5Context> context_;
};

}
