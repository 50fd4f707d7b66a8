#pragma once

#include "SkinKit/Graphics/Geometry.h"
#include "SkinKit/Graphics/Image.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace SkinKit {

// The shapes of a skin's windows, as polygons in window pixels (origin at the window's top left).
struct SkinRegion {
    // A corner between pixels: 0 is the window's left or top edge.
    using Point = Path::Vertex;
    using Polygon = std::vector<Point>;
    using Polygons = std::vector<Polygon>;

    std::map<std::string, Polygons, std::less<>> sections; // by lower-case name

    bool operator==(const SkinRegion&) const = default;

    // A section's polygons, or null when the skin has no such section. Valid while this lives.
    const Polygons* section(std::string_view name) const;
    // The main window's section, and those of the other windows that have one.
    const Polygons* normal() const { return section("normal"); }
    const Polygons* windowShade() const { return section("windowshade"); }
    const Polygons* equalizer() const { return section("equalizer"); }
    const Polygons* equalizerShade() const { return section("equalizerws"); }

    // The polygons as closed outlines, every coordinate multiplied by `scale`.
    static Path path(const Polygons& polygons, int scale);

    // A raster of `size` times `scale` pixels: opaque white where the window shows, transparent
    // elsewhere. Nothing when a raster of that size cannot exist.
    static std::optional<Image> maskImage(const Polygons& polygons, Size size, int scale);
};

}
