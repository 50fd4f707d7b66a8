#pragma once

#include "SkinKit/Tooling/CommandLine/ProgressBar.h"
#include "skintool/LiveLine.h"

#include <chrono>
#include <optional>
#include <string>

namespace skintool {

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
