#pragma once

#include <string>
#include <string_view>
#include <vector>

// Reads the stacks of threads that gdb and AddressSanitizer print:
//
//   #1  0x00005555555553ff in Skin::parse (this=0x0) at Skin.cpp:8
//   #4  0x00007ffff7c9d919 in ?? () from /lib/x86_64-linux-gnu/libstdc++.so.6
//     #0 0x55bc60cf2e3c in Skin::parse(char const*) /src/Skin.cpp:8:4
//     #0 0x55bc60cf2e3c  (/usr/bin/skintool+0x10fe3c)
namespace SkinKit::StackTrace {

// Whether the line tells of one frame.
bool isFrame(std::string_view line);

// The functions on the stack of the thread that crashed, innermost first, as far as they tell
// something: neither those by which a process aborts itself nor those of a signal handler. A
// function without a name is told by its module. Empty when the text shows no stack.
std::vector<std::string> crashedThread(std::string_view text);

}
