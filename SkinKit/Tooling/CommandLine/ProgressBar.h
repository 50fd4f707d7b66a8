#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The progress of a long job as one line of a terminal.
namespace SkinKit::ProgressBar {

struct Numbers {
    std::int64_t done = 0;   // by this process
    std::int64_t before = 0; // by earlier ones
    std::int64_t total = 0;
    std::string_view what; // of the things counted: "skins"
};

// "[#######   ]  70.0%  700/1000 skins  0:21 left", at most `columns` characters. The time left is
// worked out from `seconds`, the time that what is done has taken.
std::string line(const Numbers& numbers, double seconds, int columns);

}
