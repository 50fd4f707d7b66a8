#pragma once

#include "SkinKit/Windows/Equalizer/EQLayout.h"
#include "SkinKit/Windows/WindowRenderer.h"

#include <array>
#include <optional>
#include <variant>

namespace SkinKit {

// Everything that shows on the equalizer window at one instant, apart from the skin itself. The
// initial values are those of a player that has just started.
struct EQWindowState {
    // What can be held down besides the sliders of the bands.
    enum class Control { on, automatic, presets, shade, close, preamp };
    // The slider of one band, 0 … 9 from the left.
    struct Band {
        int index = 0;

        bool operator==(const Band&) const = default;
    };
    using Part = std::variant<Control, Band>;
    using Bands = std::array<double, EQLayout::bandCount>;

    bool focused = true;
    bool shaded = false;
    std::optional<Part> pressed; // what the pointer holds down
    bool on = true;
    bool automatic = false;
    double preamp = EQLayout::midValue; // this and the bands are slider values, 0 … 100
    Bands bands = flat();
    float volume = 0.78F; // 0 … 1; it and the balance show on the shaded window only
    float balance = 0;    // -1 … 1, 0 in the centre

    bool operator==(const EQWindowState&) const = default;

    // Every band in the middle.
    static constexpr Bands flat()
    {
        Bands bands{};
        bands.fill(EQLayout::midValue);
        return bands;
    }
};

// The equalizer window: 275 × 116 pixels, shaded 275 × 14. Its sections of the region are
// "equalizer" and, shaded, "equalizerws".
struct EQWindow {
    using State = EQWindowState;

    static Size size(const State& state);
    static const SkinRegion::Polygons* outline(const SkinRegion& region, const State& state);
    static void paint(const SpriteDrawer& drawer, const State& state, int scale, Clip clip);
};

extern template struct WindowRenderer<EQWindow>;
using EQWindowRenderer = WindowRenderer<EQWindow>;

}
