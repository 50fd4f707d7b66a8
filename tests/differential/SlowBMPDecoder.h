#pragma once

#include "SkinKit/Graphics/Image.h"
#include "tests/support/Bytes.h"

#include <optional>

namespace differential {

// What a bitmap file shows, worked out from the format's tables one pixel at a time and with no
// thought of speed. Shares nothing with the decoder that it is held against.
std::optional<SkinKit::Image> slowlyDecodedBMP(support::ByteView file);

}
