#pragma once

#include <string>
#include <string_view>

// Text on its way into an HTML document.
namespace SkinKit::HTMLText {

// What becomes of apostrophes.
enum class Apostrophe { kept, escaped };

// The text with "&", "<", ">", the double quote and, when asked, the apostrophe written as
// character references, fit for an element's content and for an attribute's value in double quotes.
// What is not UTF-8 is replaced by U+FFFD; everything else stays as it is.
std::string escaped(std::string_view text, Apostrophe apostrophe);

}
