#pragma once

#include "examples/samples/Look.h"

#include <string>

// The text files of a skin, in a look's colours.
namespace samples {

std::string visColorText(const Look& look);
std::string playlistText(const Look& look);

}
