#pragma once

#include "SkinKit/Graphics/Image.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

// Small rasters as pictures in text, a character a pixel.
namespace support {

using Legend = std::map<char, SkinKit::Pixel>;

// The picture drawn by `rows`, each character standing for its colour in the legend.
SkinKit::Image picture(const std::vector<std::string_view>& rows, const Legend& legend);

// An opaque image on which each pixel tells where it is: of a pixel so placed.
SkinKit::Pixel markOf(SkinKit::Point place);
SkinKit::Image markedImage(SkinKit::Size size);

// An image as such rows; pixels that the legend lacks show as "?".
std::vector<std::string> rowsOf(const SkinKit::Image& image, const Legend& legend);

}
