#pragma once

#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Skin.h"
#include "SkinKit/Windows/Main/MainWindowState.h"

#include <array>
#include <optional>
#include <string>

// The clock of the shaded window: a sign and four digits, a character each.
namespace SkinKit::MiniTime {

// The sign, then minutes and seconds, two digits each; a space where nothing shows.
using Characters = std::array<std::string, 5>;

Characters blank();

// A "-" in front counts down; blank when stopped.
Characters characters(const MainWindowStatus& status);

}

namespace SkinKit {

// The clock, 30 × 6 pixels, with a gap for the colon of the skin's own background. Nothing without
// a text sheet.
std::optional<Image> miniTimeImage(const Skin& skin, const MiniTime::Characters& characters);

}
