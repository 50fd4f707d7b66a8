#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

namespace support {

// Expects a function to give the second of each pair for the first.
template <class Input, class Output, class Function>
void expectTable(Function function, std::initializer_list<std::pair<Input, Output>> rows)
{
    for (const auto& [input, expected] : rows)
        EXPECT_EQ(function(input), expected) << "for " << testing::PrintToString(input);
}

}
