#pragma once

#include <string>
#include <string_view>

// Text of unknown origin as parts of a Markdown document. What could break a table or start markup,
// HTML or a link of its own is taken as the plain characters that it is.
namespace SkinKit::Markdown {

// For a table's cell. Each control or other invisible character becomes a blank. A text of more
// than 4,000 characters is truncated, with "…" at its end.
std::string cell(std::string_view text);

// A link in a cell; only the text where `url` is not one of the web.
std::string link(std::string_view text, std::string_view url);

}
