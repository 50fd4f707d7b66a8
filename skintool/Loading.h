#pragma once

#include "SkinKit/Tooling/SkinInfo.h"

#include <optional>
#include <string>

namespace skintool {

// The skin at `input`, archive or folder. When it is refused, says so on standard error and gives
// nothing.
std::optional<SkinKit::SkinInfo> loadOrSayWhyNot(const std::string& input);

}
