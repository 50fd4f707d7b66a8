#pragma once

#include "SkinKit/Base/Bytes.h"
#include "SkinKit/Base/LoadMeter.h"
#include "SkinKit/Formats/SkinRegion.h"

#include <string_view>

// Reads "region.txt": for each section of an INI file, how many points each polygon has
// ("NumPoints") and the points of all of them ("PointList").
namespace SkinKit::RegionParser {

// Never fails. Sections without both keys are left out; a count of fewer than three points makes no
// polygon but still takes its points off the list, and the last polygon may come out short. A list
// ends where the meter has no memory left for its next point. Bytes that are not UTF-8 become
// U+FFFD.
SkinRegion parse(ByteView bytes, LoadMeter& meter);
SkinRegion parse(std::string_view text);

}
