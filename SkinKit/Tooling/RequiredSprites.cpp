#include "SkinKit/Tooling/RequiredSprites.h"

namespace SkinKit::RequiredSprites {

std::vector<std::string_view> all()
{
    return {
        "MAIN_WINDOW_BACKGROUND",
        "MAIN_TITLE_BAR",
        "MAIN_PLAY_BUTTON",
        "MAIN_STEREO",
        "DIGIT_0",
        "MAIN_PLAYING_INDICATOR",
        "MAIN_POSITION_SLIDER_BACKGROUND",
        "MAIN_SHUFFLE_BUTTON",
        "MAIN_VOLUME_BACKGROUND",
        "MAIN_BALANCE_BACKGROUND",
    };
}

std::vector<std::string_view> missing(const Skin& skin)
{
    auto sprites = all();
    std::erase_if(sprites, [&skin](std::string_view sprite) {
        const auto resolved = skin.resolve(sprite);
        return resolved && !skin.generatedSheets.contains(resolved->sheet);
    });
    return sprites;
}

}
