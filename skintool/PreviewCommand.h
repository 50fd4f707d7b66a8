#pragma once

#include "skintool/Console.h"

#include <span>
#include <string>

// The `preview` form: makes a page of one skin that any browser opens.
namespace skintool::PreviewCommand {

extern const std::string_view help;

// The arguments behind the word "preview".
ExitStatus run(std::span<const std::string> arguments);

}
