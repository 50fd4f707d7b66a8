#pragma once

#include <filesystem>

// Questions about files that are named on the command line.
namespace skintool::Paths {

// Whether both names lead to the same file or folder.
bool isSame(const std::filesystem::path& a, const std::filesystem::path& b);

// The file that writing to `path` makes or changes, links followed, in one spelling for all names
// of it. It need not exist.
std::filesystem::path written(const std::filesystem::path& path);

}
