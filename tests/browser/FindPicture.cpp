#include "SkinKit/Graphics/PNGWriter.h"

#include <algorithm>
#include <cstdio>
#include <optional>

using SkinKit::Image;
using SkinKit::Point;

namespace {

bool isAt(const Image& screen, const Image& picture, Point at)
{
    for (int y = 0; y < picture.height(); ++y) {
        const auto row = picture.row(y);
        if (!std::equal(row.begin(), row.end(), screen.row(at.y + y).begin() + at.x))
            return false;
    }
    return true;
}

std::optional<Point> find(const Image& screen, const Image& picture)
{
    for (int y = 0; y + picture.height() <= screen.height(); ++y)
        for (int x = 0; x + picture.width() <= screen.width(); ++x)
            if (isAt(screen, picture, {x, y}))
                return Point{x, y};
    return std::nullopt;
}

}

// `FindPicture SCREENSHOT PICTURE`: prints where on the screenshot the picture shows, pixel for
// pixel. Fails when it does nowhere.
int main(int argc, char** argv)
{
    const auto screen = argc == 3 ? SkinKit::PNGWriter::read(argv[1]) : std::nullopt;
    const auto picture = argc == 3 ? SkinKit::PNGWriter::read(argv[2]) : std::nullopt;
    const auto place = screen && picture ? find(*screen, *picture) : std::nullopt;
    if (!place) {
        std::puts("nowhere");
        return 1;
    }
    std::printf("%d %d\n", place->x, place->y);
    return 0;
}
