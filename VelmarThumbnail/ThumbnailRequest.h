#pragma once

#include "SkinKit/Graphics/Geometry.h"

#include <filesystem>

namespace VelmarThumbnail {

// What a file browser asks for.
struct ThumbnailRequest {
    std::filesystem::path file; // a skin, archive or folder
    SkinKit::SizeF maximumSize; // points
    SkinKit::SizeF minimumSize; // points
    double scale = 1;           // the display's device pixels a point

    bool operator==(const ThumbnailRequest&) const = default;
};

}
