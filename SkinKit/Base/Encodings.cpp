// Base64 is written by hand, since none of the libraries that are used anyway has it.
#include "SkinKit/Base/Encodings.h"

#include <md5.h>

#include <algorithm>
#include <cstddef>

namespace SkinKit {
namespace Base64 {
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

MD5::MD5() : context_(std::make_unique<MD5Context>())
{
    MD5Init(context_.get());
}

MD5::~MD5() = default;

void MD5::add(ByteView bytes)
{
    MD5Update(context_.get(), bytes.data(), bytes.size());
}

std::string MD5::hexDigest()
{
    char digits[MD5_DIGEST_STRING_LENGTH];
    return MD5End(context_.get(), digits);
}

}
