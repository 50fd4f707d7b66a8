#pragma once

#include "skintool/Console.h"

#include <span>
#include <string>

// The `corpus-report` form: turns the results of a collection's run into a report and a summary,
// and tells whether the gate passes.
namespace skintool::CorpusReportCommand {

extern const std::string_view help;

// The arguments behind the word "corpus-report".
ExitStatus run(std::span<const std::string> arguments);

}
