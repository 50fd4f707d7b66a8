#pragma once

#include "SkinKit/Platform/Bytes.h"
#include "SkinKit/SkinRegion.h"

#include <string_view>

// Reads "region.txt": for each section of an INI file, how many points each polygon has
// ("NumPoints") and the points of all of them ("PointList").
namespace SkinKit::RegionParser {

// Never fails. Sections without both keys are left out; a count of fewer than three points makes no
// polygon but still takes its points off the list, and the last polygon may come out short. Points
// after the 262,144th of a section are left out.
SkinRegion parse(std::string_view text);
// Bytes that are not UTF-8 become U+FFFD.
SkinRegion parse(ByteView bytes);

}
