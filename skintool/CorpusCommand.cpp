#include "skintool/Commands.h"

#include "SkinKit/System/Process.h"
#include "SkinKit/Tooling/Corpus/CorpusRunner.h"
#include "skintool/ProgressDisplay.h"

#include <chrono>
#include <thread>

namespace skintool::CorpusCommand {
namespace {

using SkinKit::CorpusOptions;
using SkinKit::CorpusRunner;
namespace Process = SkinKit::Process;
using Progress = CorpusRunner::Progress;

SkinKit::ProgressBar::Numbers numbersOf(const Progress& progress)
{
    std::string_view what;
    switch (progress.phase) {
    case Progress::Phase::listing: what = "files listed"; break;
    case Progress::Phase::running: what = "skins"; break;
    case Progress::Phase::duplicates: what = "duplicates"; break;
    }
    return {progress.done, progress.before, progress.total, what};
}

void printTotals(const CorpusRunner::Totals& totals, const std::string& results)
{
    Console::print("files:     " + std::to_string(totals.files));
    Console::print("unique:    " + std::to_string(totals.unique));
    Console::print("attempted: " + std::to_string(totals.attempted) + " in this run");
    Console::print("results:   " + Console::visible(results));
}

}

const std::string_view help = R"(Examples:
  skintool corpus skins --out run1             every skin below a folder, once
  skintool corpus skins --out run1 --resume    go on where a run ended

Parses and renders every different .wsz and .zip file below <dir>, one at a time,
and adds what came of each to results.jsonl in the output folder, a JSON object a
line. A skin that takes too long or too much memory ends the process, and so may
one that crashes it; run again with --resume after 124, 125 or a signal's status.
Without --resume, earlier results are kept as results.jsonl~.

Options:
  --out <dir>           the folder for the results, made if it is missing
  --resume              keep the results that are there and do what is left
  --timeout <s>         the most seconds that a skin may take (default 10, "inf" for any)
  --max-memory <MiB>    the most memory the process may hold (default 4096)
  --sample <N>          only N skins, drawn by chance
  --seed <n>            the chance: the same number draws the same skins (default 1)
  --manifest <file>     a JSON array of objects with "md5", "museum_url" and "nsfw",
                        to go with the results
  -h, --help            this text
  --version             the version

Exit status: 0 done; 2 trouble; 124 a skin took too long, 125 too much memory;
130 or 143 interrupted, as a shell reports it.)";

ExitStatus run(const CorpusOptions& options)
{
    // A run loses nothing by ending at any time; but who ends it in order is spared a skin that
    // counts as crashed.
    Process::deferInterrupts();
    Process::ignorePipeSignal();
    ProgressDisplay display;
    const CorpusRunner runner(
        options.input, options.out, CorpusRunner::Config::of(options), CorpusRunner::Hooks::live(),
        [&](const std::string& line) { display.printLine(line); },
        {.advance = [&](const Progress& progress) { display.advance(numbersOf(progress)); },
         .note = [&](const std::string& text) { display.note(text); },
         .isCancelled = [] { return Process::deferredInterrupt() != 0; }});
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
    if (totals->cancelled) {
        Console::finish(done);
        Console::sayError("interrupted, " + std::to_string(totals->left) +
                          " left, continue with --resume");
        Process::raiseDeferredInterrupt();
    }
    return done;
}

}
