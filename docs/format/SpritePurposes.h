#pragma once

#include <optional>
#include <string>
#include <string_view>

// What each sprite of a classic skin is for, in a reader's words: the one thing about them that the
// library itself has no need to know.
namespace SpritePurposes {

// Nothing for a name that no sprite has.
std::optional<std::string> of(std::string_view sprite);

// The character that a cell of the text sheet shows, as Markdown; nothing for other sprites.
std::optional<std::string> character(std::string_view sprite);

}
