#pragma once

#include "SkinKit/Base/LoadMeter.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

// A small, lenient INI reader. It never fails: what it cannot use it passes over.
namespace SkinKit::IniParser {

using Section = std::map<std::string, std::string, std::less<>>; // lower-cased key → value
using Sections = std::map<std::string, Section, std::less<>>;    // lower-cased name → section

// Reads UTF-8 text. Of a key that occurs twice the later value counts; of a section whose header
// occurs twice only the keys after the last header remain. Lines before the first header and lines
// that begin with ";" say nothing, and a value knows no trailing comment. A value loses the quotes
// (double or single, matching or not) at its two ends. Sections and keys for which `memory` has too
// little left are skipped.
Sections parse(std::string_view text, LoadMeter::Scratch& memory);
Sections parse(std::string_view text);

}
