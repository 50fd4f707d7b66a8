#include "SkinKit/System/InputFile.h"
#include "SkinKit/System/ProcessFootprint.h"


#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <string_view>

namespace SkinKit::ProcessFootprint {
namespace {

ByteBuffer contentOf(const char* path)
{
    constexpr std::int64_t maxBytes = 1 << 16;
    return Files::read(path, maxBytes).value_or(ByteBuffer());
}

// The number at the front of `text`, behind blanks.
std::int64_t leadingNumber(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    std::int64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

std::int64_t currentBytes()
{
    const ByteBuffer file = contentOf("/proc/self/statm");
    std::string_view pages = asText(file); // in all, then resident
    pages.remove_prefix(std::min(pages.find(' '), pages.size()));
    return leadingNumber(pages) * ::sysconf(_SC_PAGESIZE);
}

std::int64_t lifetimeMaxBytes()
{
    constexpr std::string_view key = "\nVmHWM:";
    constexpr std::int64_t kibibyte = 1024;
    const ByteBuffer file = contentOf("/proc/self/status");
    const std::string_view text = asText(file);
    const auto found = text.find(key);
    return found == text.npos ? 0 : leadingNumber(text.substr(found + key.size())) * kibibyte;
}

}

Mebibytes mebibytes()
{
    constexpr int bitsOfMebibyte = 20;
    return {currentBytes() >> bitsOfMebibyte, lifetimeMaxBytes() >> bitsOfMebibyte};
}

}
