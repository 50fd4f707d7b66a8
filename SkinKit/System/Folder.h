#pragma once

#include "SkinKit/System/Files.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

// Listing folders.
namespace SkinKit::Files {

// What stands under one name in a folder.
struct FolderEntry {
    std::string name;
    bool isRegularFile = false; // itself, not what a link leads to
    bool isFolder = false;      // likewise
    std::int64_t size = 0;      // unless only the kinds were asked for

    bool operator==(const FolderEntry&) const = default;
};

// The kinds alone cost much less: most file systems have them at hand with the names.
enum class Details { all, kinds };

// What stands directly in a folder, in ascending byte order of the names. Fails with
// std::errc::file_too_large when it is more than `maxEntries`.
Result<std::vector<FolderEntry>>
list(const std::filesystem::path& folder,
     std::int64_t maxEntries = std::numeric_limits<std::int64_t>::max(),
     Details details = Details::all);

}
