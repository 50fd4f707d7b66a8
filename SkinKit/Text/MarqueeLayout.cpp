#include "SkinKit/Text/MarqueeLayout.h"

#include "SkinKit/Base/Unicode.h"

#include <cstdint>

namespace SkinKit::MarqueeLayout {
namespace {

std::size_t length(std::string_view composed)
{
    return Unicode::toUTF16(composed).size();
}

}

bool isLong(std::string_view text)
{
    return length(Unicode::toNFC(text)) >= maxLength;
}

std::string loopText(std::string_view text)
{
    const std::string composed = Unicode::toNFC(text);
    const std::size_t units = length(composed);
    if (units < maxLength)
        return composed + std::string(maxLength - units, ' ');
    return composed + std::string(separator) + composed;
}

int stepOffset(std::string_view text, int step, int pixels)
{
    const std::size_t units = length(Unicode::toNFC(text));
    if (units < maxLength)
        return 0;
    const auto period = static_cast<std::int64_t>(units + separator.size()) * charWidth;
    const std::int64_t offset = (std::int64_t{step} * charWidth + pixels) % period;
    return static_cast<int>(offset < 0 ? offset + period : offset);
}

}
