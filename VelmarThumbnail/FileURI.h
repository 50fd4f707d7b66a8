#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

// Names of files as the desktop passes them around.
namespace VelmarThumbnail::FileURI {

// Whether a name is a URI of the scheme "file", whatever its case, rather than a path.
bool isFileURI(std::string_view name);

// The path that such a URI stands for: "file:///a%20b", "file://localhost/a%20b" or "file:/a%20b"
// is "/a b". Nothing when it is on another computer, or no URI of a file at all.
std::optional<std::filesystem::path> path(std::string_view uri);

}
