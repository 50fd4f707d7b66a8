#pragma once

#include "tests/support/Bytes.h"

#include <cstddef>
#include <filesystem>
#include <vector>

// Whole collections of skins.
namespace support {

// All regular files of a folder, in the order of their names.
std::vector<ByteBuffer> readFolder(const std::filesystem::path& folder);

// Writes `count` skins, a thousand to a sub-folder of `folder`: the models in turn, archives
// without a comment, each with its number for one.
void writeCollection(const std::filesystem::path& folder, const std::vector<ByteBuffer>& models,
                     std::size_t count);

}
