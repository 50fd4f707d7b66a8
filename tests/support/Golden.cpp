#include "tests/support/Golden.h"

#include "SkinKit/Raster/Canvas.h"
#include "SkinKit/Rendering/ImageDiff.h"
#include "SkinKit/Rendering/PNGWriter.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace support {

using namespace SkinKit;

void expectGolden(const Image& image, std::string_view name)
{
    const auto path = std::filesystem::path(SKINKIT_SOURCE_FOLDER) / "tests/goldens" /
                      (std::string(name) + ".png");
    if (std::getenv("REWRITE_GOLDENS")) {
        ASSERT_FALSE(PNGWriter::write(image, path)) << path;
        return;
    }
    const auto golden = PNGWriter::read(path);
    ASSERT_TRUE(golden) << path << " can't be read";
    if (*golden == image)
        return;

    Canvas sheet({2 * golden->width() + image.width(), std::max(golden->height(), image.height())});
    sheet.draw(*golden, Point{0, 0});
    sheet.draw(ImageDiff::diffImage(*golden, image), Point{golden->width(), 0});
    sheet.draw(image, Point{2 * golden->width(), 0});
    const auto mismatch = std::filesystem::absolute(std::string(name) + ".mismatch.png");
    PNGWriter::write(sheet.image(), mismatch);
    ADD_FAILURE() << "not as in " << path << "; see " << mismatch;
}

}
