#include "SkinKit/System/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace SkinKit::Terminal {

std::optional<int> errorColumns()
{
    constexpr int usualColumns = 80;
    if (::isatty(STDERR_FILENO) == 0)
        return std::nullopt;
    struct ::winsize size{};
    const bool isKnown = ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : usualColumns;
}

}
