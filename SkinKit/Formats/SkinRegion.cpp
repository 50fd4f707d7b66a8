#include "SkinKit/Formats/SkinRegion.h"

#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Graphics/Geometry.h"

namespace SkinKit {

const SkinRegion::Polygons* SkinRegion::section(std::string_view name) const
{
    const auto found = sections.find(name);
    return found == sections.end() ? nullptr : &found->second;
}

Path SkinRegion::path(const Polygons& polygons, int scale)
{
    Path path;
    for (const auto& polygon : polygons) {
        if (polygon.empty())
            continue;
        auto& outline = path.polygons.emplace_back();
        outline.reserve(polygon.size());
        for (const auto& point : polygon)
            outline.push_back({scaledCoordinate(point.x, scale), scaledCoordinate(point.y, scale)});
    }
    return path;
}

std::optional<Image> SkinRegion::maskImage(const Polygons& polygons, Size size, int scale)
{
    const auto width = static_cast<long long>(size.width) * scale;
    const auto height = static_cast<long long>(size.height) * scale;
    if (scale < 1 || !PixelBuffer::fits(width, height))
        return std::nullopt;

    Canvas canvas({static_cast<int>(width), static_cast<int>(height)});
    canvas.clip(path(polygons, scale));
    canvas.fill({0, 0, canvas.size().width, canvas.size().height}, {255, 255, 255});
    return std::move(canvas).image();
}

}
