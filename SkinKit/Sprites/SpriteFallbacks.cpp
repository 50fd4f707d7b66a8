#include "SkinKit/Sprites/SpriteFallbacks.h"

#include "SkinKit/Sprites/SkinSprites.h"

#include <algorithm>

namespace SkinKit::SpriteFallbacks {

std::optional<Resolved> resolve(std::string_view name,
                                const std::function<bool(std::string_view)>& isHeld)
{
    const auto held = [&isHeld](std::string_view spriteName) -> std::optional<Resolved> {
        const auto placed = SkinSprites::byName(spriteName);
        if (!placed || !isHeld(placed->sheet))
            return std::nullopt;
        return Resolved{placed->sheet, placed->sprite.rect()};
    };

    const auto pair =
        std::ranges::find(SkinSprites::numberPairs(), name, &SkinSprites::NumberPair::plain);
    if (pair != SkinSprites::numberPairs().end()) {
        const auto extended = held(pair->ext);
        return extended ? extended : held(pair->plain);
    }

    if (const auto own = held(name))
        return own;
    const auto fallback =
        std::ranges::find(SkinSprites::fallbacks(), name, &SkinSprites::Fallback::name);
    if (fallback == SkinSprites::fallbacks().end())
        return std::nullopt;
    auto substitute = held(fallback->substitute);
    if (substitute) {
        const Rect wanted = SkinSprites::byName(name)->sprite.rect();
        substitute->rect.width = std::min(substitute->rect.width, wanted.width);
        substitute->rect.height = std::min(substitute->rect.height, wanted.height);
    }
    return substitute;
}

}
