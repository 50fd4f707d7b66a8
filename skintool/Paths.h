#pragma once

#include <filesystem>

// Questions about files that are named on the command line.
namespace skintool::Paths {

// Whether both names lead to the same file or folder.
bool isSame(const std::filesystem::path& a, const std::filesystem::path& b);

}
