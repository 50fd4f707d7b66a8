#include "SkinKit/System/Files.h"

#include "SkinKit/System/Descriptor.h"

#include <sys/stat.h>

#include <ctime>

namespace SkinKit::Files {

Result<Kind> kind(const std::filesystem::path& path)
{
    struct ::stat file{};
    if (::stat(path.c_str(), &file) != 0)
        return std::unexpected(Descriptor::lastError());
    return S_ISREG(file.st_mode)   ? Kind::regularFile
           : S_ISDIR(file.st_mode) ? Kind::folder
                                   : Kind::other;
}

Result<std::string> dateOf(const std::filesystem::path& path)
{
    struct ::stat file{};
    if (::stat(path.c_str(), &file) != 0)
        return std::unexpected(Descriptor::lastError());
    struct ::tm time{};
    char date[32];
    if (!::localtime_r(&file.st_mtime, &time) ||
        std::strftime(date, sizeof date, "%Y-%m-%d", &time) == 0)
        return std::unexpected(std::make_error_code(std::errc::value_too_large));
    return date;
}

Result<std::filesystem::path> followLinks(std::filesystem::path path,
                                          bool (*isEnd)(const std::filesystem::path&))
{
    constexpr int maxLinks = 40; // as the system itself allows
    for (int i = 0; i < maxLinks; ++i) {
        if (isEnd && isEnd(path))
            return path;
        std::error_code error;
        const auto target = std::filesystem::read_symlink(path, error);
        if (error == std::errc::invalid_argument || error == std::errc::no_such_file_or_directory)
            return path; // no link
        if (error)
            return std::unexpected(error);
        path = path.parent_path() / target;
    }
    return std::unexpected(std::make_error_code(std::errc::too_many_symbolic_link_levels));
}

std::filesystem::path named(const std::filesystem::path& path)
{
    auto whole = path.has_filename() ? path : path.parent_path();
    if (whole.has_filename() && whole.filename() != "." && whole.filename() != "..")
        return whole;
    std::error_code ignored;
    return std::filesystem::weakly_canonical(path, ignored);
}

}
