#pragma once

#include <optional>

namespace SkinKit::Terminal {

// How many characters a line of the terminal has that standard error goes to; nothing when it goes
// elsewhere.
std::optional<int> errorColumns();

}
