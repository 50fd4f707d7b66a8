#pragma once

#include "skintool/Console.h"

#include <span>
#include <string>

// `skintool gallery`: shows a folder of skins as one page.
namespace skintool::GalleryCommand {

extern const std::string_view help;

ExitStatus run(std::span<const std::string> arguments);

}
