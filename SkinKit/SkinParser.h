#pragma once

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Skin.h"
#include "SkinKit/SkinError.h"

#include <expected>
#include <filesystem>

// Turns a skin's files into a Skin. A skin is refused only when it cannot be opened, is a modern
// one, or has not a single usable sheet; everything else that is missing or broken is substituted,
// and becomes a note of fixed text in `warnings` or `fallbacks`. Pure: any thread, any number at
// once.
namespace SkinKit::SkinParser {

// Reads an archive or a folder (see SkinArchive::open).
std::expected<Skin, SkinError> parse(const std::filesystem::path& path,
                                     const SkinArchive::Limits& limits = {});
std::expected<Skin, SkinError> parse(const SkinArchive& archive);

}
