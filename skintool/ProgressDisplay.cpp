#include "skintool/ProgressDisplay.h"

#include "SkinKit/System/Process.h"
#include "skintool/Console.h"

#include <algorithm>
#include <cstdio>

namespace skintool {

void LiveLine::show(std::string_view text)
{
    const auto width = static_cast<std::size_t>(std::max(this->width(), 0));
    std::string line(text.substr(0, width));
    line.resize(width, ' ');
    std::fprintf(stderr, "\r%s\r", line.c_str());
    std::fflush(stderr);
    isShown_ = true;
}

void LiveLine::end()
{
    if (isShown_)
        std::fputc('\n', stderr);
    isShown_ = false;
}

ProgressDisplay::ProgressDisplay()
{
    if (const auto columns = SkinKit::Process::errorColumns())
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
