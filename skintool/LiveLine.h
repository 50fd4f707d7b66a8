#pragma once

#include <string_view>

namespace skintool {

// A line of the terminal that standard error goes to, written again and again in place.
class LiveLine {
public:
    explicit LiveLine(int columns) : columns_(columns) {}
    ~LiveLine() { end(); }
    LiveLine(const LiveLine&) = delete;

    // How long a text may be: one less than the terminal's line, so that it never wraps.
    int width() const { return columns_ - 1; }

    void show(std::string_view text);
    // Leaves the line as it is; what is printed next begins below it.
    void end();

private:
    int columns_;
    bool isShown_ = false;
};

}
