#pragma once

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Base/Bytes.h"
#include "SkinKit/Base/LoadMeter.h"
#include "SkinKit/Formats/Cursor.h"

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace SkinKit {

// A skin's cursors: one file for each of 24 names, .cur before .ani when both are there.
struct SkinCursors {
    // A larger file is ignored, as if it were not there.
    static constexpr std::int64_t maxFileBytes = 8 << 20;

    // The names, upper case, ascending.
    static std::span<const std::string_view> names();

    std::map<std::string, Cursor, std::less<>> byName; // keys among `names`
    std::vector<std::string> unreadable;               // damaged files, lower case, ascending

    bool operator==(const SkinCursors&) const = default;

    // Never fails: a damaged file becomes an entry of `unreadable`, and so does one that finds too
    // little memory left.
    static SkinCursors load(const SkinArchive& archive, LoadMeter& meter);
    static SkinCursors load(const SkinArchive& archive);

    // One file, taken for what it holds: one that begins with "RIFF" is animated, any other static.
    // Nothing when it is damaged.
    static std::optional<Cursor> decode(ByteView bytes);

    // The cursor of that upper-case name; null when there is none. Valid while this value lives.
    const Cursor* cursor(std::string_view name) const;
};

}
