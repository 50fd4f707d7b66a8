#pragma once

#include "SkinKit/Base/Check.h"
#include "SkinKit/Graphics/Geometry.h"

#include <climits>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace SkinKit {

// A named rectangle of a sprite sheet: sheet pixels, origin at the sheet's top left.
struct Sprite {
    std::string_view name; // unique across all sheets
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    constexpr Rect rect() const { return {x, y, width, height}; }
    bool operator==(const Sprite&) const = default;
};

}

// Equal sprites have equal hashes.
template <>
struct std::hash<SkinKit::Sprite> {
    std::size_t operator()(const SkinKit::Sprite& sprite) const
    {
        std::size_t mixed = std::hash<std::string_view>{}(sprite.name);
        for (const int part : {sprite.x, sprite.y, sprite.width, sprite.height})
            mixed = mixed * 31 + static_cast<std::size_t>(part);
        return mixed;
    }
};

// The whole vocabulary of classic skins: which sheets exist, and every named sprite on them. Tables
// that never change; all names in them are literals.
namespace SkinKit::SkinSprites {

// A sheet is the skin's file with this name in lower case and the extension of a picture.
struct Sheet {
    std::string_view name; // upper case, such as "NUMS_EX"
    std::span<const Sprite> sprites;
};

inline constexpr std::size_t sheetCount = 16;

// No sprite reaches farther right or down in its sheet.
inline constexpr Size extent{512, 512};

// All sheets, in ascending byte order of their names.
std::span<const Sheet> sheets();
// The sprites of one sheet in table order; none for an unknown name.
std::span<const Sprite> spritesOf(std::string_view sheet);

// A sprite and the sheet it lives on.
struct Placed {
    std::string_view sheet;
    Sprite sprite;

    bool operator==(const Placed&) const = default;
};

// All 281 sprites in ascending byte order of their names.
std::span<const Placed> all();
// The sprite of that name; nothing for an unknown one.
std::optional<Placed> byName(std::string_view name);

// The sprite of another sheet that may stand in for this one.
struct Fallback {
    std::string_view name;
    std::string_view substitute;
};
std::span<const Fallback> fallbacks();

// A sprite of NUMBERS and its counterpart on NUMS_EX.
struct NumberPair {
    std::string_view plain;
    std::string_view ext;
};
std::span<const NumberPair> numberPairs();

// Whether a skin may lack this sheet without being incomplete.
bool isOptionalSheet(std::string_view sheet);

}

// Which sheet a sprite is drawn from, given the sheets that a skin holds.
namespace SkinKit::SpriteFallbacks {

// Where a sprite's pixels are.
struct Resolved {
    std::string_view sheet;
    Rect rect; // sheet pixels; not checked against the sheet's size

    bool operator==(const Resolved&) const = default;
};

// Where a sprite is looked for first: digits and signs on NUMS_EX, any other on its own sheet.
std::optional<Resolved> preferred(std::string_view name);
// And where after that: digits and signs on NUMBERS, any other on its substitute's sheet, cut to
// the smaller of both sizes.
std::optional<Resolved> substitute(std::string_view name);

// The first of the two whose sheet the skin holds, by `bool isHeld(std::string_view sheet)`.
// Nothing for an unknown name, or when neither sheet is held.
template <typename IsHeld>
std::optional<Resolved> resolve(std::string_view name, const IsHeld& isHeld)
{
    if (auto place = preferred(name); place && isHeld(place->sheet))
        return place;
    auto place = substitute(name);
    return place && isHeld(place->sheet) ? place : std::nullopt;
}

}

// The frames of a slider's background, an image for each range of its value. Sheet pixels.
namespace SkinKit::SliderFrames {

inline constexpr int frameCount = 28;

// Volume and balance: a strip of frames, one below the other.
inline constexpr int frameHeight = 15;      // from one frame to the next
inline constexpr int visibleFrameRows = 13; // of each

// A frame's rectangle in its strip. A negative frame is a programming error.
inline Rect frameRect(const Rect& strip, int frame)
{
    check(frame >= 0 && frame < INT_MAX / frameHeight / 2, "a frame out of range");
    return {strip.x, strip.y + frameHeight * frame, strip.width, visibleFrameRows};
}

// The equalizer's bands: from the lowest value to the highest, in rows of fourteen.
inline constexpr int framesInRow = 14;
inline constexpr Size framePitch{15, 65};
inline constexpr Size bandFrameSize{14, 63};

// The cell of a frame; one beyond is that of the nearer end.
constexpr Rect bandFrameRect(const Rect& strip, int frame)
{
    const int shown = clamped(frame, 0, frameCount - 1);
    return {strip.x + framePitch.width * (shown % framesInRow),
            strip.y + framePitch.height * (shown / framesInRow), bandFrameSize.width,
            bandFrameSize.height};
}

}
