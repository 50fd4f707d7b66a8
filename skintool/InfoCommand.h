#pragma once

#include "skintool/Console.h"

#include <span>
#include <string>

// The `info` form: tells everything about one skin, to people or as JSON.
namespace skintool::InfoCommand {

extern const std::string_view help;

// The arguments behind the word "info".
ExitStatus run(std::span<const std::string> arguments);

}
