#pragma once

#include "skintool/Console.h"

#include <span>
#include <string>

// The single-skin form: reads one skin, tells what it is, or renders it to a PNG file and compares
// that with a reference.
namespace skintool::RenderCommand {

extern const std::string_view help;

ExitStatus run(std::span<const std::string> arguments);

}
