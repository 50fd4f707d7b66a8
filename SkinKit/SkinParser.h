#pragma once

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Archive/SkinError.h"
#include "SkinKit/Skin.h"

#include <expected>
#include <filesystem>

// Turns a skin's files into a Skin. A skin is refused only when it cannot be opened, is a modern
// one, or has not a single usable sheet; everything else that is missing or broken is substituted,
// and becomes a note of fixed text in `warnings` or `fallbacks`. Pure: any thread, any number at
// once.
namespace SkinKit::SkinParser {

// How much of the sheets a skin keeps.
enum class Sheets {
    whole,
    croppedToSprites, // cut where no sprite can reach: the same pictures in a fraction of the
                      // memory
};

// Reads an archive or a folder (see SkinArchive::open).
std::expected<Skin, SkinError> parse(const std::filesystem::path& path,
                                     const SkinArchive::Limits& limits = {},
                                     Sheets sheets = Sheets::whole);
std::expected<Skin, SkinError> parse(const SkinArchive& archive, Sheets sheets = Sheets::whole);

}
