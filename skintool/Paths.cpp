#include "skintool/Paths.h"

#include <system_error>

namespace skintool::Paths {

bool isSame(const std::filesystem::path& a, const std::filesystem::path& b)
{
    std::error_code ignored;
    return std::filesystem::equivalent(a, b, ignored);
}

}
