#include "SkinKit/Skin.h"
#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

#include <climits>

using namespace SkinKit;

namespace {

Skin skinOf(std::string_view sheet, Size size)
{
    Skin skin;
    skin.sheets.emplace(sheet, support::markedImage(size));
    return skin;
}

void expectPart(const std::optional<Image>& image, const Skin& skin,
                const std::optional<Rect>& rect)
{
    EXPECT_EQ(image, rect ? skin.sheets.begin()->second.crop(*rect) : std::nullopt);
}

}

TEST(Skin, CropsASpriteAsFarAsItsSheetGoes)
{
    const std::tuple<std::string_view, Size, std::optional<Rect>> rows[] = {
        {"MAIN_PLAY_BUTTON_ACTIVE", {136, 36},  Rect{23, 18, 23, 18}},
        {"MAIN_PLAY_BUTTON_ACTIVE", {40, 30},   Rect{23, 18, 17, 12}},
        {"MAIN_PLAY_BUTTON_ACTIVE", {23, 36},   std::nullopt        },
        {"MAIN_PLAY_BUTTON_ACTIVE", {136, 18},  std::nullopt        },
        {"MAIN_TITLE_BAR",          {400, 400}, std::nullopt        }, // on another sheet
        {"NO_SUCH_SPRITE",          {400, 400}, std::nullopt        },
    };
    for (const auto& [sprite, size, expected] : rows) {
        SCOPED_TRACE(testing::Message() << sprite << " of " << size.width << "x" << size.height);
        const Skin skin = skinOf("CBUTTONS", size);
        expectPart(skin.image(sprite), skin, expected);
    }
}

TEST(Skin, CutsSliderFramesOutOfAStrip)
{
    const std::tuple<std::string_view, Size, int, std::optional<Rect>> rows[] = {
        {"MAIN_VOLUME_BACKGROUND",          {68, 433}, 0,       Rect{0, 0, 68, 13}  },
        {"MAIN_VOLUME_BACKGROUND",          {68, 433}, 27,      Rect{0, 405, 68, 13}},
        {"MAIN_VOLUME_BACKGROUND",          {68, 600}, 28,      std::nullopt        }, // below the sprite
        {"MAIN_VOLUME_BACKGROUND",          {68, 418}, 27,      Rect{0, 405, 68, 13}},
        {"MAIN_VOLUME_BACKGROUND",          {68, 417}, 27,      std::nullopt        }, // below the sheet
        {"MAIN_VOLUME_BACKGROUND",          {68, 12},  0,       std::nullopt        },
        {"MAIN_VOLUME_BACKGROUND",          {30, 433}, 2,       Rect{0, 30, 30, 13} }, // cut at the right
        {"MAIN_VOLUME_BACKGROUND",          {68, 433}, -1,      std::nullopt        },
        {"MAIN_VOLUME_BACKGROUND",          {68, 433}, INT_MAX, std::nullopt        },
        {"MAIN_VOLUME_BACKGROUND",          {68, 433}, INT_MIN, std::nullopt        },
        {"MAIN_BALANCE_BACKGROUND",         {68, 433}, 3,       Rect{0, 45, 38, 13} }, // the substitute
        {"MAIN_POSITION_SLIDER_BACKGROUND", {68, 433}, 0,       std::nullopt        },
        {"MAIN_VOLUME_THUMB",               {68, 600}, 0,       std::nullopt        }, // not high enough for one
    };
    for (const auto& [sprite, size, frame, expected] : rows) {
        SCOPED_TRACE(testing::Message() << sprite << ", frame " << frame);
        const Skin skin = skinOf("VOLUME", size);
        expectPart(skin.image(sprite, Frame{frame}), skin, expected);
    }
}

TEST(Skin, CutsBandFramesOutOfTwoRows)
{
    const std::tuple<Size, int, std::optional<Rect>> rows[] = {
        {{275, 315}, 0,  Rect{13, 164, 14, 63} },
        {{275, 315}, 13, Rect{208, 164, 14, 63}},
        {{275, 315}, 14, Rect{13, 229, 14, 63} },
        {{275, 315}, 27, Rect{208, 229, 14, 63}},
        {{275, 315}, 28, std::nullopt          },
        {{275, 315}, -1, std::nullopt          },
        {{222, 292}, 27, Rect{208, 229, 14, 63}},
        {{221, 292}, 27, std::nullopt          }, // beyond the right edge
        {{222, 291}, 27, std::nullopt          }, // beyond the bottom
        {{221, 291}, 12, Rect{193, 164, 14, 63}},
    };
    for (const auto& [size, frame, expected] : rows) {
        SCOPED_TRACE(testing::Message() << "frame " << frame);
        const Skin skin = skinOf("EQMAIN", size);
        expectPart(skin.image("EQ_SLIDER_BACKGROUND", BandFrame{frame}), skin, expected);
    }
}
