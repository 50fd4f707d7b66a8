#pragma once

#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Skin.h"
#include "SkinKit/Windows/Equalizer/EQLayout.h"

#include <array>
#include <optional>
#include <span>

// The small graph of the equalizer's response: a smooth curve through the values of the bands, row
// 0 being the highest value. Values are those of EQLayout's sliders.
namespace SkinKit::EQGraph {

inline constexpr Size size = EQLayout::graph.size();
inline constexpr int bandSpacingX = 12;
inline constexpr int paddingLeft = 2;
inline constexpr int columnCount = (EQLayout::bandCount - 1) * bandSpacingX + 1;
static_assert(paddingLeft + columnCount <= size.width);

// The row in which the curve passes a band of this value.
int knotYForValue(double value);
// The row of the preamp's line. It sinks as the value rises, the other way than the curve.
int preampLineYForValue(double value);

// The curve's row in each of its columns, the first band's in the first. Bands that `values` lacks
// are in the middle; values beyond the tenth are ignored.
std::array<int, columnCount> curve(std::span<const double> values);

// The graph on its background, each row of the curve in the skin's colour for it. Nothing unless
// the skin has a colour for every row.
std::optional<Image> render(const Skin& skin, std::span<const double> values, double preamp);

}
