#pragma once

#include "SkinKit/Base/Bytes.h"
#include "SkinKit/Base/LoadMeter.h"
#include "SkinKit/Formats/PlaylistStyle.h"

#include <string>
#include <string_view>
#include <vector>

// Reads "pledit.txt": the [Text] section of an INI file, colours written #RRGGBB.
namespace SkinKit::PlaylistStyleParser {

// What a file says, and what of it could not be used.
struct Result {
    PlaylistStyle style;
    std::vector<std::string> fallbacks; // a note for each colour that is there but unusable
};

// Never fails: a colour that is absent or unusable keeps its default, as does an empty font. Bytes
// that are not UTF-8 become U+FFFD.
Result parse(ByteView bytes, LoadMeter& meter);
Result parse(std::string_view text);

}
