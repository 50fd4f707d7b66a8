#include "skintool/ProgressDisplay.h"

#include "SkinKit/System/Terminal.h"
#include "skintool/Console.h"

namespace skintool {

ProgressDisplay::ProgressDisplay()
{
    if (const auto columns = SkinKit::Terminal::errorColumns())
        live_.emplace(*columns);
}

void ProgressDisplay::advance(const SkinKit::ProgressBar::Numbers& numbers)
{
    constexpr std::chrono::milliseconds betweenLooks(100);
    if (!live_)
        return;
    const auto now = Clock::now();
    if (numbers.done == 0)
        start_ = now;
    const bool isLast = numbers.before + numbers.done == numbers.total;
    if (now - shown_ < betweenLooks && !isLast)
        return;
    const std::chrono::duration<double> elapsed = now - start_;
    live_->show(SkinKit::ProgressBar::line(numbers, elapsed.count(), live_->width()));
    shown_ = now;
}

void ProgressDisplay::printLine(const std::string& line) const
{
    if (!live_)
        Console::say(line);
}

void ProgressDisplay::note(const std::string& text)
{
    end();
    Console::sayError(text);
}

void ProgressDisplay::end()
{
    if (live_)
        live_->end();
}

}
