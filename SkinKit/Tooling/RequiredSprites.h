#pragma once

#include "SkinKit/Skin.h"

#include <string_view>
#include <vector>

// The ten sprites that a skin has to bring itself to count as a complete main window.
namespace SkinKit::RequiredSprites {

std::vector<std::string_view> all();

// Those that the skin has no sheet for, or only a generated one; none when it is complete.
std::vector<std::string_view> missing(const Skin& skin);

}
