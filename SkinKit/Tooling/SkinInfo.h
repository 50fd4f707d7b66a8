#pragma once

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Base/JSON.h"
#include "SkinKit/Skin.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace SkinKit {

// The ten sprites that a skin has to bring itself to count as a complete main window.
namespace RequiredSprites {

std::vector<std::string_view> all();

// Those that the skin has no sheet for, or only a generated one; none when it is complete.
std::vector<std::string_view> missing(const Skin& skin);

}

// The facts of one skin, for people or for programs. Holds no pixels, so the skin may go first.
struct SkinInfo {
    struct Sheet {
        Size size;
        bool hasAlpha = false;
        bool isGenerated = false; // not from the archive
    };
    // A section of the window shapes, with the smallest box around its points. The box's corners,
    // since a skin's numbers may lie too far apart for a width.
    struct Region {
        std::int64_t polygons = 0;
        std::int64_t points = 0;
        std::int64_t left = 0; // the box has no meaning without points
        std::int64_t top = 0;
        std::int64_t right = 0;
        std::int64_t bottom = 0;
    };
    // A cursor by its best image; of an animation, that of its first frame.
    struct CursorFacts {
        Size size;
        Point hotSpot;
        int bitCount = 0;
        std::int64_t images = 0; // of a static cursor
        std::int64_t frames = 0; // of an animation; 0 for a static one
        std::int64_t steps = 0;
    };

    std::string name;              // UTF-8
    std::int64_t keptCount = 0;    // files of the container that were read
    std::int64_t leftOutCount = 0; // and those that were not
    std::map<std::string, Sheet> sheets;
    std::vector<std::string_view> missingSprites; // of those that the main window requires
    std::vector<std::string> warnings;
    std::vector<std::string> fallbacks;
    VisColorParser::Colors visColors;
    std::map<std::string, Region> regions;
    PlaylistStyle playlistStyle;
    std::map<std::string, CursorFacts> cursors;
    std::vector<std::string> unreadableCursors; // file names

    // The facts of a skin that was parsed from this archive.
    static SkinInfo of(std::string_view name, const SkinArchive& archive, const Skin& skin);

    // "ok", or "partial" when the skin has a warning.
    std::string_view status() const;
    // One line: sheets, entries, and whether the main window is complete.
    std::string summary() const;
    // Short lines, aligned, a heading before each group. Texts of the skin are passed on as they
    // are: whoever prints them makes control characters visible.
    std::vector<std::string> lines() const;
    // All of it as one object, for programs.
    JSON json() const;
};

}
