#pragma once

#include "SkinKit/Base/TerminalText.h"

#include <string_view>

// What the program says, and how it ends.
namespace skintool {

// The exit statuses, the same for every form of the command line.
enum ExitStatus : int {
    done = 0,
    answerIsNo = 1, // pictures differ, a gate fails
    trouble = 2,    // usage, a refused skin, a file that can't be read or written
};

namespace Console {

using SkinKit::TerminalText::visible;

// A line to standard output, or to standard error. Output that can't be written is noticed by
// `finish`.
void print(std::string_view line);
void say(std::string_view line);
// "skintool: NAME: TEXT" to standard error, or without the name.
void sayError(std::string_view name, std::string_view text);
void sayError(std::string_view text);

// Flushes standard output. The status to end with: `status`, or trouble when output was lost.
ExitStatus finish(ExitStatus status);

}

}
