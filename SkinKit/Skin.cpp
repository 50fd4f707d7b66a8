#include "SkinKit/Skin.h"

#include "SkinKit/Sprites/SkinSprites.h"

namespace SkinKit {

std::optional<SpriteFallbacks::Resolved> Skin::resolve(std::string_view sprite) const
{
    return SpriteFallbacks::resolve(
        sprite, [this](std::string_view sheet) { return sheets.contains(sheet); });
}

std::optional<Image> Skin::image(std::string_view sprite) const
{
    const auto resolved = resolve(sprite);
    if (!resolved)
        return std::nullopt;
    return sheets.find(resolved->sheet)->second.crop(resolved->rect);
}

std::optional<Image> Skin::image(std::string_view sprite, Frame frame) const
{
    const auto resolved = resolve(sprite);
    if (!resolved || frame.number < 0 ||
        frame.number > resolved->rect.height / SliderFrames::frameHeight)
        return std::nullopt;
    const Image& sheet = sheets.find(resolved->sheet)->second;
    const Rect rect = SliderFrames::frameRect(resolved->rect, frame.number);
    if (rect.bottom() > sheet.height() || rect.bottom() > resolved->rect.bottom())
        return std::nullopt;
    return sheet.crop(rect);
}

std::optional<Image> Skin::image(std::string_view sprite, BandFrame frame) const
{
    const auto resolved = resolve(sprite);
    if (!resolved || frame.number < 0 || frame.number >= SliderFrames::frameCount)
        return std::nullopt;
    const Image& sheet = sheets.find(resolved->sheet)->second;
    const Rect rect = SliderFrames::bandFrameRect(resolved->rect, frame.number);
    if (rect.right() > sheet.width() || rect.bottom() > sheet.height())
        return std::nullopt;
    return sheet.crop(rect);
}

}
