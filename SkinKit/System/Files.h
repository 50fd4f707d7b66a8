#pragma once

#include <expected>
#include <filesystem>
#include <string>
#include <system_error>

// Files by their names, which are bytes, as the system has them.
namespace SkinKit::Files {

template <typename T>
using Result = std::expected<T, std::error_code>;

enum class Kind { regularFile, folder, other };

// What `path` leads to, links followed.
Result<Kind> kind(const std::filesystem::path& path);

// The day on which a file was last written, by the local clock: "2024-02-29".
Result<std::string> dateOf(const std::filesystem::path& path);

// Where `path` leads, through links whose target need not exist, up to the first name for which
// `isEnd` holds, if it is given.
Result<std::filesystem::path> followLinks(std::filesystem::path path,
                                          bool (*isEnd)(const std::filesystem::path&) = nullptr);

// The path by whose last component a person knows the file: without slashes at its end, and with a
// "." or ".." there followed to what it leads to.
std::filesystem::path named(const std::filesystem::path& path);

}
