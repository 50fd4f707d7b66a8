#pragma once

#include <string>
#include <string_view>

// Text of unknown origin on a terminal.
namespace SkinKit::TerminalText {

// Text fit for a terminal line: bytes that are not UTF-8 replaced, control and other invisible
// characters escaped ("\n", "\x1B", "\u202E").
std::string visible(std::string_view text);

}
