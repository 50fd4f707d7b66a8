#pragma once

#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Windows/WindowRenderer.h"
#include "skintool/Console.h"

#include <cstdint>
#include <filesystem>
#include <optional>

// What the forms that write pictures share.
namespace skintool::Pictures {

// Before anything is allocated: whether a picture can be held and written, given its size if any
// raster can have it.
bool canWrite(std::optional<SkinKit::Size> size);

// That no picture can have this scale. The status to end with.
ExitStatus sayScaleIsTooLarge(std::int64_t scale);

SkinKit::Clip clip(bool noRegion);

// Writes a PNG file, or says why it can't be.
ExitStatus write(const SkinKit::Image& image, const std::filesystem::path& path);

}
