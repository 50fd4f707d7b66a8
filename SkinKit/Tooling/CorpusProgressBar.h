#pragma once

#include "SkinKit/Tooling/CorpusRunner.h"

#include <string>

// The progress of a run as one line of a terminal.
namespace SkinKit::CorpusProgressBar {

// "[#######   ]  70.0%  700/1000 skins  0:21 left", at most `columns` characters; what earlier runs
// answered is part of it. The time left is worked out from `seconds`, the time that this phase of
// this run has taken so far.
std::string line(const CorpusRunner::Progress& progress, double seconds, int columns);

}
