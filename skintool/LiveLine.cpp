#include "skintool/LiveLine.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace skintool {

void LiveLine::show(std::string_view text)
{
    const auto width = static_cast<std::size_t>(std::max(this->width(), 0));
    std::string line(text.substr(0, width));
    line.resize(width, ' ');
    std::fprintf(stderr, "\r%s\r", line.c_str());
    std::fflush(stderr);
    isShown_ = true;
}

void LiveLine::end()
{
    if (isShown_)
        std::fputc('\n', stderr);
    isShown_ = false;
}

}
