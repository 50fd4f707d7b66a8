#pragma once

#include "SkinKit/Graphics/Image.h"

#include <string_view>

namespace support {

// Expects `image` to equal the picture tests/goldens/<name>.png, pixel by pixel. Where it does not,
// expected | difference | actual stands in <name>.mismatch.png in the current folder. With the
// variable REWRITE_GOLDENS set, the picture is written anew instead.
void expectGolden(const SkinKit::Image& image, std::string_view name);
// The same for a text and the file tests/goldens/<file>; a text that differs is shown as a whole.
void expectGoldenText(std::string_view text, std::string_view file);

}
