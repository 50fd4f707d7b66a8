#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace SkinKit {

// Takes a JSON object's members off the front of a line, as long as they are plain: texts without
// escapes, numbers without a sign, no white space. Everything that is false here may still be JSON;
// what is taken means the same there. Once something could not be taken, the rest is of no use.
class PlainLine {
public:
    explicit PlainLine(std::string_view line) : rest_(line) {}

    // The start of a member of that name; nothing is taken when another stands there.
    bool takeKey(std::string_view key);

    bool take(std::string& text);
    bool take(std::vector<std::string>& texts);
    bool take(bool& value);
    bool take(std::int64_t& value);
    bool take(double& value);

    // Whether only the object's end is left.
    bool isAtEnd() const { return !isFirst_ && rest_ == "}"; }

private:
    bool skip(std::string_view expected);
    std::string_view takeDigits();

    std::string_view rest_;
    bool isFirst_ = true; // no member was taken yet
};

}
