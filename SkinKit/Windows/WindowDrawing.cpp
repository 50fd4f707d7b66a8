#include "SkinKit/Windows/WindowDrawing.h"

#include "SkinKit/Base/Check.h"

#include <algorithm>

namespace SkinKit {

bool SpriteDrawer::draw(std::string_view name, Point at) const
{
    return draw(skin.image(name), at);
}

bool SpriteDrawer::draw(const std::optional<Image>& image, Point at) const
{
    if (image)
        context.draw(*image, at);
    return image.has_value();
}

bool SpriteDrawer::drawClipped(std::string_view name, const Rect& area) const
{
    const SavedCanvasState saved(context);
    context.clip(area);
    return draw(name, area.origin());
}

namespace WindowDrawing {

int effectiveScale(int scale)
{
    return std::max(scale, 1);
}

std::optional<Size> size(Size window, std::int64_t scale)
{
    constexpr std::int64_t beyondAnyRaster = 1 << 30; // and small enough to multiply
    const std::int64_t factor = std::clamp<std::int64_t>(scale, 1, beyondAnyRaster);
    const std::int64_t width = window.width * factor;
    const std::int64_t height = window.height * factor;
    if (!PixelBuffer::fits(width, height))
        return std::nullopt;
    return Size{static_cast<int>(width), static_cast<int>(height)};
}

Canvas makeCanvas(Size window, int scale)
{
    const auto deviceSize = size(window, scale);
    check(deviceSize.has_value(), "a window whose raster cannot exist");
    return Canvas(*deviceSize);
}

void enter(Canvas& canvas, Point at, Size window, const SkinRegion::Polygons* outline)
{
    check(size(window, 1).has_value(), "a window whose raster cannot exist");
    canvas.translate(at);
    canvas.clip(Rect{0, 0, window.width, window.height});
    if (outline)
        canvas.clip(SkinRegion::path(*outline, 1));
}

}

}
