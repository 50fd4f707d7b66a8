#pragma once

#include "SkinKit/Base/LoadMeter.h"
#include "SkinKit/Base/Unicode.h"

#include <iterator>
#include <string>
#include <string_view>

namespace SkinKit {

// The text of a file, each ill-formed part of it replaced by U+FFFD. Empty when `memory` has too
// little left for the longest text that so many bytes can become.
inline std::string textOf(ByteView bytes, LoadMeter::Scratch& memory)
{
    constexpr std::int64_t maxBytesPerByte = 3;
    return memory.take(maxBytesPerByte * std::ssize(bytes)) ? Unicode::toValidUTF8(bytes)
                                                            : std::string();
}

// Takes the next line that is not empty off the front of `text`, or gives an empty one at its end.
// Lines end at "\r\n", "\n" or "\r"; so a run of line ends is passed over as a whole.
inline std::string_view takeLine(std::string_view& text)
{
    constexpr std::string_view lineEnds = "\r\n";
    const auto begin = text.find_first_not_of(lineEnds);
    if (begin == text.npos) {
        text = {};
        return {};
    }
    text.remove_prefix(begin);
    const std::string_view line = text.substr(0, text.find_first_of(lineEnds));
    text.remove_prefix(line.size());
    return line;
}

}
