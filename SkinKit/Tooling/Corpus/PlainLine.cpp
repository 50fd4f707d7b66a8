#include "SkinKit/Tooling/Corpus/PlainLine.h"

#include "SkinKit/Base/Unicode.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <system_error>

namespace SkinKit {
namespace {

bool isWholeNumber(std::string_view digits)
{
    return !digits.empty() && (digits.front() != '0' || digits.size() == 1);
}

}

bool PlainLine::takeKey(std::string_view key)
{
    PlainLine line(rest_);
    if (!line.skip(isFirst_ ? "{\"" : ",\"") || !line.skip(key) || !line.skip("\":"))
        return false;
    rest_ = line.rest_;
    isFirst_ = false;
    return true;
}

bool PlainLine::take(std::string& text)
{
    if (!skip("\""))
        return false;
    bool isASCII = true;
    const auto end = std::ranges::find_if(rest_, [&](char c) {
        isASCII = isASCII && c >= 0;
        return c == '"' || c == '\\' || (c >= 0 && c < ' ');
    });
    if (end == rest_.end() || *end != '"')
        return false;
    const auto size = static_cast<std::size_t>(end - rest_.begin());
    text = rest_.substr(0, size);
    rest_.remove_prefix(size + 1);
    return isASCII || Unicode::toValidUTF8(asBytes(text)) == text;
}

bool PlainLine::take(std::vector<std::string>& texts)
{
    if (!skip("["))
        return false;
    if (skip("]"))
        return true;
    do {
        if (!take(texts.emplace_back()))
            return false;
    } while (skip(","));
    return skip("]");
}

bool PlainLine::take(bool& value)
{
    value = rest_.starts_with('t');
    return skip(value ? "true" : "false");
}

bool PlainLine::take(std::int64_t& value)
{
    const auto digits = takeDigits();
    const auto error = std::from_chars(digits.data(), digits.data() + digits.size(), value).ec;
    return isWholeNumber(digits) && error == std::errc();
}

bool PlainLine::take(double& value)
{
    const char* const begin = rest_.data();
    if (!isWholeNumber(takeDigits()))
        return false;
    if (skip(".") && takeDigits().empty())
        return false;
    if (skip("e")) {
        if (!skip("-"))
            skip("+");
        if (takeDigits().empty())
            return false;
    }
    return std::from_chars(begin, rest_.data(), value).ec == std::errc();
}

bool PlainLine::skip(std::string_view expected)
{
    if (!rest_.starts_with(expected))
        return false;
    rest_.remove_prefix(expected.size());
    return true;
}

std::string_view PlainLine::takeDigits()
{
    const auto digits = rest_.substr(0, rest_.find_first_not_of("0123456789"));
    rest_.remove_prefix(digits.size());
    return digits;
}

}
