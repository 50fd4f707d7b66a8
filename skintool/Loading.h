#pragma once

#include "SkinKit/SkinParser.h"
#include "SkinKit/Tooling/SkinInfo.h"

#include <filesystem>
#include <optional>
#include <string>

namespace skintool {

// A skin, and the facts of it and of its archive, which is closed again.
struct LoadedSkin {
    SkinKit::SkinInfo info;
    SkinKit::Skin skin;
};

// The skin at `input`, archive or folder. Where it is rejected, prints why on standard error and
// gives nothing.
std::optional<LoadedSkin> loadOrSayWhyNot(const std::string& input,
                                          SkinKit::SkinParser::Sheets sheets);

// The skin's name as the user gave it, without its extension; a folder has none. Empty for a path
// without a name, such as the root.
std::string skinName(const std::filesystem::path& input);

}
