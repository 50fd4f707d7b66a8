#pragma once

#include "SkinKit/Tooling/SkinInfo.h"

#include <filesystem>
#include <optional>
#include <string>

namespace skintool {

// The skin at `input`, archive or folder. When it is refused, says so on standard error and gives
// nothing.
std::optional<SkinKit::SkinInfo> loadOrSayWhyNot(const std::string& input);

// The skin's name as the user gave it, without its extension; a folder has none. Empty for a path
// without a name, such as the root.
std::string skinName(const std::filesystem::path& input);

}
