#pragma once

#include "SkinKit/Graphics/Image.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/Tooling/SkinInfo.h"
#include "SkinKit/Windows/WindowRenderer.h"
#include "skintool/Console.h"

#include <cstdint>
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

// Prints on standard error how many files of the archive cannot be read. They look like missing
// ones otherwise.
void sayUnreadableFiles(const SkinKit::SkinArchive& archive);

// The skin's name as the user gave it, without its extension; a folder has none. Empty for a path
// without a name, such as the root.
std::string skinName(const std::filesystem::path& input);

// What the commands that write pictures share.
namespace Pictures {

// Before anything is allocated: whether a picture can be held and written, given its size if any
// raster can have it.
bool canWrite(std::optional<SkinKit::Size> size);

// That no picture can have this scale. The status to end with.
ExitStatus sayScaleIsTooLarge(std::int64_t scale);

SkinKit::Clip clip(bool noRegion);

// Writes a PNG file, or says why it can't be.
ExitStatus write(const SkinKit::Image& image, const std::filesystem::path& path);

}

}
