#include "SkinKit/Base/Base64.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace SkinKit::Base64 {
namespace {

constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::size_t groupBytes = 3;
constexpr std::size_t groupCharacters = 4;
constexpr std::size_t lineCharacters = 76;
constexpr std::size_t lineBytes = lineCharacters / groupCharacters * groupBytes;

// Up to three bytes as 24 bits, of which each six make a character.
void appendGroup(std::string& text, ByteView group)
{
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < groupBytes; ++i)
        bits = bits << 8 | (i < group.size() ? group[i] : 0U);
    for (std::size_t i = 0; i < groupCharacters; ++i)
        text += i <= group.size() ? alphabet[bits >> (18 - 6 * i) & 63] : '=';
}

void appendEncoded(std::string& text, ByteView bytes)
{
    while (!bytes.empty()) {
        const auto group = bytes.first(std::min(groupBytes, bytes.size()));
        appendGroup(text, group);
        bytes = bytes.subspan(group.size());
    }
}

}

std::string encoded(ByteView bytes)
{
    std::string text;
    text.reserve((bytes.size() / groupBytes + 1) * groupCharacters);
    appendEncoded(text, bytes);
    return text;
}

std::string encodedLines(ByteView bytes)
{
    std::string text;
    text.reserve((bytes.size() / lineBytes + 1) * (lineCharacters + 2));
    while (!bytes.empty()) {
        const auto line = bytes.first(std::min(lineBytes, bytes.size()));
        appendEncoded(text, line);
        text += "\r\n";
        bytes = bytes.subspan(line.size());
    }
    return text;
}

}
