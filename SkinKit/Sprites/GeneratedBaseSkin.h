#pragma once

#include "SkinKit/Graphics/Image.h"

#include <optional>
#include <string_view>

// Plain stand-ins for the sheets a skin lacks, drawn from the sprite table alone: bevelled buttons
// and panels, seven-segment digits, and text in a small font of our own.
namespace SkinKit::GeneratedBaseSkin {

// Whether there is a stand-in for this sheet: for all but the optional ones that others replace
// (BALANCE, NUMS_EX, EQ_EX, GEN).
bool isGenerated(std::string_view sheet);

// The size that holds every sprite of the sheet; 1 × 1 for an unknown one.
Size size(std::string_view sheet);

// The stand-in, opaque, or nothing where there is none. Drawn once per process, when first asked
// for; the pixels are shared from then on.
std::optional<Image> sheet(std::string_view name);

}
