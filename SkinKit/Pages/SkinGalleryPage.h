#pragma once

#include "SkinKit/Graphics/Geometry.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Many skins as one page to scroll.
namespace SkinKit::SkinGalleryPage {

// A skin on the page. All texts are UTF-8 and shown as they are, whatever they hold.
struct Card {
    std::string name;
    std::string path;                   // of its file, below the folder of the skins
    std::optional<std::string> error;   // why there is no picture
    std::string picture;                // the address of its PNG file
    std::string preview;                // the address of its own page
    std::vector<std::string> warnings;  // what is missing or broken
    std::vector<std::string> fallbacks; // what was taken in its stead
};

// The page, with its style and the script that sorts and filters it; without script it shows all
// cards as they come. The pictures have `pictureSize`, which is what they are shown at.
std::string html(std::string_view title, const std::vector<Card>& cards, Size pictureSize);

}
