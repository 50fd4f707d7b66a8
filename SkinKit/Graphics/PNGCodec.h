#pragma once

#include "SkinKit/Base/Bytes.h"
#include "SkinKit/Base/LoadMeter.h"
#include "SkinKit/Graphics/Image.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

// PNG files in memory. Gamma, colour profiles and text are ignored.
namespace SkinKit::PNGCodec {

// What one decode may cost; a larger picture is refused before any memory is asked for.
struct Limits {
    int maxSide;
    std::int64_t maxPixels;
};

// The size that a PNG file's header states, or nothing when the bytes don't begin with the format's
// signature and that header.
std::optional<Size> size(ByteView bytes);

// The picture in a PNG file of any colour type, depth and interlacing; 16-bit channels keep their
// high byte. Nothing when the bytes are no PNG, are damaged or truncated, or break a limit, or when
// the meter's time is up.
std::optional<Image> decode(ByteView bytes, const Limits& limits, LoadMeter& meter);
std::optional<Image> decode(ByteView bytes, const Limits& limits);

// The largest side of a picture that can be encoded.
inline constexpr int maxEncodedSide = 1'000'000;

// A remark in a file: keyword (1 to 79 characters) and text, both Latin-1.
struct Text {
    std::string keyword;
    std::string text;
};

// The image as an 8-bit RGBA PNG file, with these remarks in front of the pixels. Nothing when a
// side exceeds `maxEncodedSide` or the format can't hold a remark.
std::optional<ByteBuffer> encode(const Image& image, std::span<const Text> texts = {});

}
