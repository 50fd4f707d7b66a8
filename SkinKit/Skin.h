#pragma once

#include "SkinKit/Formats/PlaylistStyle.h"
#include "SkinKit/Formats/SkinCursors.h"
#include "SkinKit/Formats/SkinRegion.h"
#include "SkinKit/Formats/VisColorParser.h"
#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Sprites/SkinSprites.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace SkinKit {

// A frame of a slider's background strip, 0 the topmost.
struct Frame {
    int number = 0;
};
// A frame of the equalizer's band slider, 0 … 27 in two rows of 14.
struct BandFrame {
    int number = 0;
};

// Everything that was read from one classic skin. A plain value; the sheets' pixels are shared, so
// a copy is cheap. Once parsed it never changes, and any number of threads may read it.
struct Skin {
    std::map<std::string, Image, std::less<>> sheets; // by upper-case sheet name
    VisColorParser::Colors visColors = VisColorParser::defaults;
    SkinRegion region;                  // without sections when the skin has none
    std::vector<std::string> warnings;  // what the skin lacks or breaks that will show
    std::vector<std::string> fallbacks; // what was substituted so that drawing still works
    std::set<std::string, std::less<>> generatedSheets; // of `sheets`, those not from the archive
    PlaylistStyle playlistStyle;
    SkinCursors cursors;

    bool operator==(const Skin&) const = default;

    // Whether digits come from the extended sheet.
    bool usesNumsEx() const { return sheets.contains("NUMS_EX"); }

    // The sheet and the rectangle that a sprite is drawn from, substitutes included; nothing for an
    // unknown name or when the skin has no sheet for it.
    std::optional<SpriteFallbacks::Resolved> resolve(std::string_view sprite) const;

    // The sprite's pixels, as far as the sheet has them; nothing when it has none of them.
    std::optional<Image> image(std::string_view sprite) const;
    // The frame's pixels: 13 rows, the frames 15 rows apart. Nothing for a negative number or a
    // frame that ends below the sheet or below the sprite; one that is too wide is cut at the
    // right.
    std::optional<Image> image(std::string_view sprite, Frame frame) const;
    // 14 × 63 pixels. Nothing for other numbers than 0 … 27 or a frame that leaves the sheet.
    std::optional<Image> image(std::string_view sprite, BandFrame frame) const;
};

}
