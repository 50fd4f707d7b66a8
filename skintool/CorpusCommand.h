#pragma once

#include "skintool/Console.h"

#include <span>
#include <string>

// `skintool corpus`: runs a whole collection of skins.
namespace skintool::CorpusCommand {

extern const std::string_view help;

ExitStatus run(std::span<const std::string> arguments);

}
