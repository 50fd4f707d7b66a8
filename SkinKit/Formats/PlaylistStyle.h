#pragma once

#include "SkinKit/Graphics/RGBColor.h"

#include <cstddef>
#include <string>

namespace SkinKit {

// The colours and the font of the playlist window's entries. The initial values are those of a skin
// that says nothing.
struct PlaylistStyle {
    RGBColor normal = rgb(0x00FF00);             // ordinary entries
    RGBColor current = rgb(0xFFFFFF);            // the entry that plays
    RGBColor normalBackground = rgb(0x000000);   // the list
    RGBColor selectedBackground = rgb(0x0000C6); // behind selected entries
    std::string font = "Arial";                  // family name

    bool operator==(const PlaylistStyle&) const = default;

    static PlaylistStyle defaults() { return {}; }
};

}

// Equal styles have equal hashes.
template <>
struct std::hash<SkinKit::PlaylistStyle> {
    std::size_t operator()(const SkinKit::PlaylistStyle& style) const
    {
        std::size_t mixed = std::hash<std::string>{}(style.font);
        for (const auto& color :
             {style.normal, style.current, style.normalBackground, style.selectedBackground})
            mixed = mixed * 31 + std::hash<SkinKit::RGBColor>{}(color);
        return mixed;
    }
};
