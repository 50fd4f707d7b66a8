#pragma once

#include "SkinKit/Graphics/Image.h"

#include <string_view>

namespace support {

// Expects `image` to equal tests/goldens/<name>.png, pixel by pixel. If it does not, it is written
// to <name>.actual.png in the current folder. With the variable REWRITE_GOLDENS set, the golden is
// written instead.
void expectGolden(const SkinKit::Image& image, std::string_view name);
// The same for a text and the file tests/goldens/<file>; a text that differs is shown as a whole.
void expectGoldenText(std::string_view text, std::string_view file);

}
