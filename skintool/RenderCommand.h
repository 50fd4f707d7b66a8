#pragma once

#include "skintool/Console.h"

#include <span>
#include <string>

// The single-skin form: reads one skin, tells what it is, or renders it to a PNG file.
namespace skintool::RenderCommand {

ExitStatus run(std::span<const std::string> arguments);

}
