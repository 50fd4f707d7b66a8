#include "SkinKit/Graphics/Image.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using support::picture;
using support::rowsOf;

namespace {

using Rows = std::vector<std::string>;

const support::Legend legend{
    {'a', packPixel(1, 0, 0)},
    {'b', packPixel(2, 0, 0)},
    {'c', packPixel(3, 0, 0)},
    {'d', packPixel(4, 0, 0)},
    {'e', packPixel(5, 0, 0)},
    {'f', packPixel(6, 0, 0)},
    {'.', transparentPixel},
};

}

TEST(Image, CropsToThePartThatItHas)
{
    const Image image = picture({"abc", "def"}, legend);
    struct Row {
        Rect rect;
        Rows expected; // none: no image
    };
    const Row rows[] = {
        {{0, 0, 3, 2},   {"abc", "def"}},
        {{1, 0, 2, 2},   {"bc", "ef"}  },
        {{1, 1, 9, 9},   {"ef"}        },
        {{-1, -1, 2, 2}, {"a"}         },
        {{3, 0, 1, 1},   {}            },
        {{0, 2, 1, 1},   {}            },
        {{-5, 0, 5, 2},  {}            },
        {{1, 1, 0, 1},   {}            },
        {{1, 1, 1, -1},  {}            },
    };
    for (const auto& [rect, expected] : rows) {
        const auto crop = image.crop(rect);
        EXPECT_EQ(crop ? rowsOf(*crop, legend) : Rows{}, expected)
            << rect.x << ", " << rect.y << ", " << rect.width << ", " << rect.height;
    }
    EXPECT_EQ(rowsOf(*image.crop({1, 0, 2, 2})->crop({1, 1, 5, 5}), legend), Rows{"f"});
}

TEST(Image, SharesItsPixelsWithCopiesAndCropsThatOutliveIt)
{
    std::optional<Image> image = picture({"abc", "def"}, legend);
    const Image copy = *image;
    const Image crop = *image->crop({1, 1, 2, 1});
    EXPECT_EQ(copy.row(1).data() + 1, crop.row(0).data());
    image.reset();
    EXPECT_EQ(rowsOf(crop, legend), Rows{"ef"});
}
