#pragma once

#include "tests/support/Bytes.h"

#include <cstddef>
#include <filesystem>
#include <string_view>
#include <vector>

// Whole collections of skins.
namespace support {

// The archive with a comment, so that it differs from others of the same content. It must have
// none.
ByteBuffer withComment(ByteBuffer archive, std::string_view comment);

// All regular files of a folder, in the order of their names.
std::vector<ByteBuffer> readFolder(const std::filesystem::path& folder);

// Writes `count` different skins made from `models` in turn, a thousand to a sub-folder of
// `folder`.
void writeCollection(const std::filesystem::path& folder, const std::vector<ByteBuffer>& models,
                     std::size_t count);

}
