#include "skintool/Paths.h"

#include <system_error>

namespace skintool::Paths {

bool isSame(const std::filesystem::path& a, const std::filesystem::path& b)
{
    std::error_code ignored;
    return std::filesystem::equivalent(a, b, ignored);
}

std::filesystem::path written(const std::filesystem::path& path)
{
    constexpr int mostLinks = 40; // as the system allows
    std::error_code error;
    auto target = std::filesystem::absolute(path, error);
    for (int i = 0; i < mostLinks && std::filesystem::is_symlink(target, error); ++i)
        target = target.parent_path() / std::filesystem::read_symlink(target, error);
    return std::filesystem::weakly_canonical(target.parent_path(), error) / target.filename();
}

}
