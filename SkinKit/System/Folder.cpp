#include "SkinKit/System/Folder.h"

#include "SkinKit/System/Descriptor.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <memory>

namespace SkinKit::Files {

Result<std::vector<FolderEntry>> list(const std::filesystem::path& folder, std::int64_t maxEntries,
                                      Details details)
{
    const auto close = [](DIR* directory) { ::closedir(directory); };
    auto descriptor = Descriptor::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (descriptor.number() < 0)
        return std::unexpected(Descriptor::lastError());
    const std::unique_ptr<DIR, decltype(close)> directory(::fdopendir(descriptor.number()), close);
    if (!directory)
        return std::unexpected(Descriptor::lastError());
    descriptor.release();

    std::vector<FolderEntry> entries;
    while (true) {
        errno = 0;
        const dirent* const found = ::readdir(directory.get());
        if (!found && errno != 0)
            return std::unexpected(Descriptor::lastError());
        if (!found)
            break;
        const std::string name = found->d_name;
        if (name == "." || name == "..")
            continue;
        if (std::ssize(entries) == maxEntries)
            return std::unexpected(std::make_error_code(std::errc::file_too_large));
        if (details == Details::kinds && found->d_type != DT_UNKNOWN) {
            entries.push_back({name, found->d_type == DT_REG, found->d_type == DT_DIR});
            continue;
        }
        struct ::stat status{};
        if (::fstatat(::dirfd(directory.get()), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0)
            entries.push_back(
                {name, S_ISREG(status.st_mode), S_ISDIR(status.st_mode), status.st_size});
        else if (errno != ENOENT) // gone since
            return std::unexpected(Descriptor::lastError());
    }
    std::ranges::sort(entries, {}, &FolderEntry::name);
    return entries;
}

}
