#include "SkinKit/Archive/SkinError.h"

#include <utility>

namespace SkinKit {

SkinError SkinError::unreadableArchive(std::string detail)
{
    return {Kind::unreadableArchive, std::move(detail)};
}

SkinError SkinError::takesTooLong()
{
    return unreadableArchive("Takes too long to read");
}

SkinError SkinError::modernSkin()
{
    return {Kind::modernSkin, {}};
}

SkinError SkinError::noBitmaps()
{
    return {Kind::noBitmaps, {}};
}

std::string SkinError::description() const
{
    switch (kind_) {
    case Kind::unreadableArchive: return "Unreadable archive: " + detail_;
    case Kind::modernSkin: return "Modern (Winamp 3/5) skin; not supported";
    case Kind::noBitmaps: break;
    }
    return "No classic skin bitmaps found";
}

}
