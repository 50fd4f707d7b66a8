#pragma once

#include "skintool/Console.h"

#include <span>
#include <string>

// The `windows` form: draws all windows of one skin, each full and shaded.
namespace skintool::WindowsCommand {

extern const std::string_view help;

// The arguments behind the word "windows".
ExitStatus run(std::span<const std::string> arguments);

}
