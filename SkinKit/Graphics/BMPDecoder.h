#pragma once

#include "SkinKit/Base/Bytes.h"
#include "SkinKit/Graphics/Image.h"

#include <cstdint>
#include <optional>

// Decodes Windows and OS/2 bitmap files of every classic depth and compression. Strict about sizes
// and header fields; forgiving about where pixels are said to begin and about colours that the
// palette lacks, since the files found in skins often have both wrong.
namespace SkinKit::BMPDecoder {

inline constexpr int maxSide = 4096;
inline constexpr std::int64_t maxPixels = 8'388'608;

// An opaque image, or nothing when the bytes are no bitmap, are damaged, or exceed a limit. Partial
// images are never handed out.
std::optional<Image> decode(ByteView file);

}
