#pragma once

#include "SkinKit/Display/MainWindowStatus.h"

#include <array>
#include <string>

// The clock of the shaded window: a sign and four digits, a character each.
namespace SkinKit::MiniTime {

// The sign, then minutes and seconds, two digits each; a space where nothing shows.
using Characters = std::array<std::string, 5>;

Characters blank();

// A "-" in front counts down; blank when stopped.
Characters characters(const MainWindowStatus& status);

}
