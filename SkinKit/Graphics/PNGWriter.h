#pragma once

#include "SkinKit/Base/Bytes.h"
#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Graphics/PNGCodec.h"

#include <filesystem>
#include <optional>
#include <system_error>

// Images as PNG files, and back.
namespace SkinKit::PNGWriter {

// A side longer than this can't be encoded.
inline constexpr int maxSide = PNGCodec::maxEncodedSide;

// What can go wrong before the system is asked.
enum class WriteError { couldNotEncode = 1 };
std::error_code make_error_code(WriteError error); // its message: "could not encode PNG"

// The image as an 8-bit RGBA PNG, or nothing when it can't be encoded.
std::optional<ByteBuffer> data(const Image& image);

// Writes the image to a file that is replaced in one step (anything but a regular file is written
// in place). Gives WriteError or the system's own error, or one that is no error.
std::error_code write(const Image& image, const std::filesystem::path& file);

// The picture in a PNG or BMP file, or nothing when there is none or it can't be read.
std::optional<Image> read(const std::filesystem::path& file);

}

template <>
struct std::is_error_code_enum<SkinKit::PNGWriter::WriteError> : std::true_type {};
