#include "VelmarThumbnail/ThumbnailError.h"

namespace VelmarThumbnail {

ThumbnailError ThumbnailError::of(const SkinKit::SkinError& error)
{
    return {std::string(skinErrorDomain), static_cast<int>(error.kind()), error.description()};
}

}
