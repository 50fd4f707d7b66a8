#pragma once

#include "SkinKit/Tooling/CommandLine/ProgressBar.h"

#include <chrono>
#include <optional>
#include <string>
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

// Shows how far a long job is, on standard error: a live line on a terminal, plain lines elsewhere.
class ProgressDisplay {
public:
    ProgressDisplay();

    // The numbers after a step; `done` = 0 begins something new.
    void advance(const SkinKit::ProgressBar::Numbers& numbers);
    // A line where there is no live one.
    void printLine(const std::string& line) const;
    // Something to be seen at once.
    void note(const std::string& text);
    // Nothing more is to come.
    void end();

private:
    using Clock = std::chrono::steady_clock;

    std::optional<LiveLine> live_;
    Clock::time_point start_;
    Clock::time_point shown_;
};

}
