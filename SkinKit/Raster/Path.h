#pragma once

#include <cstdint>
#include <vector>

namespace SkinKit {

// Closed polygons, to be filled together by the non-zero winding rule. The last point of each is
// joined to its first.
struct Path {
    // A corner; the unit is that of whoever fills the path.
    struct Vertex {
        std::int64_t x = 0;
        std::int64_t y = 0;

        bool operator==(const Vertex&) const = default;
    };

    std::vector<std::vector<Vertex>> polygons;

    bool operator==(const Path&) const = default;
};

}
