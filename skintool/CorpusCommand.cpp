#include "skintool/CorpusCommand.h"

#include "SkinKit/Platform/Terminal.h"
#include "SkinKit/Tooling/CorpusOptions.h"
#include "SkinKit/Tooling/CorpusProgressBar.h"
#include "SkinKit/Tooling/CorpusRunner.h"
#include "skintool/LiveLine.h"

#include <chrono>
#include <optional>
#include <thread>

namespace skintool::CorpusCommand {
namespace {

using SkinKit::CorpusOptions;
using SkinKit::CorpusRunner;
using Progress = CorpusRunner::Progress;

// Shows how far the run is: one live line where standard error is a terminal, else plain lines.
class Display {
public:
    Display()
    {
        if (const auto columns = SkinKit::Terminal::errorColumns())
            live_.emplace(*columns);
    }

    void printLine(const std::string& line)
    {
        if (!live_)
            Console::say(line);
    }

    void note(const std::string& text)
    {
        end();
        Console::sayError(text);
    }

    void advance(const Progress& progress)
    {
        constexpr std::chrono::milliseconds betweenLooks(100);
        const auto now = Clock::now();
        if (progress.phase != phase_ || progress.done == 0) {
            phase_ = progress.phase;
            phaseStart_ = now;
        }
        const bool isLast = progress.before + progress.done == progress.total;
        if (!live_ || (now - shown_ < betweenLooks && !isLast))
            return;
        const std::chrono::duration<double> elapsed = now - phaseStart_;
        live_->show(SkinKit::CorpusProgressBar::line(progress, elapsed.count(), live_->width()));
        shown_ = now;
    }

    void end()
    {
        if (live_)
            live_->end();
    }

private:
    using Clock = std::chrono::steady_clock;

    std::optional<LiveLine> live_;
    Progress::Phase phase_ = Progress::Phase::listing;
    Clock::time_point phaseStart_ = Clock::now();
    Clock::time_point shown_;
};

void printTotals(const CorpusRunner::Totals& totals, const std::string& results)
{
    Console::print("files:     " + std::to_string(totals.files));
    Console::print("unique:    " + std::to_string(totals.unique));
    Console::print("attempted: " + std::to_string(totals.attempted) + " in this run");
    Console::print("results:   " + Console::visible(results));
}

ExitStatus run(const CorpusOptions& options)
{
    Display display;
    auto hooks = CorpusRunner::Hooks::live();
    hooks.abort = [&display, abort = hooks.abort](int status) {
        display.end();
        abort(status);
    };
    const CorpusRunner runner(
        options.input, options.out, CorpusRunner::Config::of(options), std::move(hooks),
        [&](const std::string& line) { display.printLine(line); },
        [&](const Progress& progress) { display.advance(progress); },
        [&](const std::string& text) { display.note(text); });
    const auto totals = runner.run();
    // The watchdog is about to end the process with a status of its own.
    while (totals && totals->aborted)
        std::this_thread::sleep_for(std::chrono::hours(1));

    display.end();
    if (!totals) {
        Console::sayError(totals.error().description);
        return trouble;
    }
    printTotals(*totals, runner.resultsURL().string());
    return done;
}

}

const std::string_view help = R"(Examples:
  skintool corpus skins --out run1             every skin below a folder, once
  skintool corpus skins --out run1 --resume    go on where a run ended

Parses and renders every different .wsz and .zip file below <dir>, one at a time,
and adds what came of each to results.jsonl in the output folder, a JSON object a
line. A skin that takes too long or too much memory ends the process, and so may
one that crashes it; run again with --resume until the status is 0 or 2.

Options:
  --out <dir>           the folder for the results, made if it is missing
  --resume              keep the results that are there and do what is left
  --timeout <s>         the most seconds that a skin may take (default 10)
  --max-memory <MiB>    the most memory the process may hold (default 4096)
  --sample <N>          only N skins, drawn by chance
  --seed <n>            the chance: the same number draws the same skins (default 1)
  --manifest <file>     a JSON array of objects with "md5", "museum_url" and "nsfw",
                        to go with the results
  -h, --help            this text
  --version             the version

Exit status: 0 done; 2 trouble; 124 a skin took too long, 125 too much memory.)";

ExitStatus run(std::span<const std::string> arguments)
{
    const auto options = CorpusOptions::parse(arguments);
    if (!options)
        return Console::sayUsageError(options.error().description, CorpusOptions::usage);
    return run(*options);
}

}
