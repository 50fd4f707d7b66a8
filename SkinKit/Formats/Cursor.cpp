#include "SkinKit/Formats/Cursor.h"

#include <algorithm>
#include <utility>

namespace SkinKit {

const CursorImage& StaticCursor::best() const
{
    return *std::ranges::max_element(images, {}, [](const CursorImage& candidate) {
        return std::pair(candidate.image.width() * candidate.image.height(), candidate.bitCount);
    });
}

}
