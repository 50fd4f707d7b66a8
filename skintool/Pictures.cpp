#include "skintool/Pictures.h"

#include "SkinKit/Graphics/PNGWriter.h"

#include <string>

namespace skintool::Pictures {

using namespace SkinKit;

bool canWrite(std::optional<Size> size)
{
    return size && size->width <= PNGWriter::maxSide && size->height <= PNGWriter::maxSide;
}

ExitStatus sayScaleIsTooLarge(std::int64_t scale)
{
    Console::sayError("--scale " + std::to_string(scale) + " is too large");
    return trouble;
}

Clip clip(bool noRegion)
{
    return noRegion ? Clip::none : Clip::toRegion;
}

ExitStatus write(const Image& image, const std::filesystem::path& path)
{
    if (const auto error = PNGWriter::write(image, path)) {
        Console::sayError(path.string(), error.message());
        return trouble;
    }
    return done;
}

}
