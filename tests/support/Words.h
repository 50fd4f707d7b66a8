#pragma once

#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace support {

// A command line as its arguments, none of which has a blank in it.
inline std::vector<std::string> words(std::string_view line)
{
    std::istringstream stream{std::string(line)};
    return {std::istream_iterator<std::string>(stream), {}};
}

}
