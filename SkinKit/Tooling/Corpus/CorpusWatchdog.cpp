#include "SkinKit/Tooling/Corpus/CorpusWatchdog.h"

#include "SkinKit/Base/Numbers.h"
#include "SkinKit/System/Process.h"

#include <tuple>
#include <utility>

namespace SkinKit {
namespace {

constexpr double millisecondsPerSecond = 1000;

}

CorpusWatchdog::CorpusWatchdog(Journal handle, Settings settings)
    : settings_(std::move(settings)), interval_(std::chrono::duration_cast<Clock::duration>(
                                          std::chrono::duration<double>(settings_.pollInterval))),
      handle_(std::move(handle))
{
}

CorpusWatchdog::~CorpusWatchdog()
{
    if (!thread_.joinable())
        return;
    std::unique_lock held(lock_);
    finished_ = true;
    const bool isAborting = aborted_;
    held.unlock();
    finishing_.notify_all();
    // The hook need not come back, and the thread touches nothing of ours after it.
    if (isAborting)
        thread_.detach();
    else
        thread_.join();
}

std::error_code CorpusWatchdog::startThread()
{
    try {
        thread_ = std::thread([this] {
            Process::nameThread("corpus-watchdog");
            watch();
        });
    } catch (const std::system_error& error) {
        return error.code();
    }
    return {};
}

bool CorpusWatchdog::isAborted()
{
    const std::lock_guard held(lock_);
    return aborted_;
}

CorpusWatchdog::Result CorpusWatchdog::start(const CorpusRecord& start)
{
    const std::lock_guard held(lock_);
    if (aborted_)
        return Turn::aborted;
    const std::int64_t place = handle_.size();
    if (const auto error = writeLocked(start))
        return std::unexpected(error);
    const auto now = Clock::now();
    current_ = Current{start, place, now};
    nextLook_ = now + interval_;
    return Turn::taken;
}

CorpusWatchdog::Result CorpusWatchdog::answer(CorpusRecord result)
{
    const std::lock_guard held(lock_);
    if (aborted_)
        return Turn::aborted;
    result.ms = elapsedSeconds() * millisecondsPerSecond;
    const auto footprint = settings_.footprint();
    if (const auto error = answerLocked(result, footprint))
        return std::unexpected(error);
    makeRoom(footprint.current);
    return Turn::taken;
}

std::error_code CorpusWatchdog::write(const CorpusRecord& record)
{
    const std::lock_guard held(lock_);
    return writeLocked(record);
}

// How long the current skin has taken. A look that is overdue by more than an interval means that
// the whole process stood still, stopped by a signal or with its machine: that time does not count.
// Each look counts for an interval at least, so that a skin is judged even where all are overdue.
double CorpusWatchdog::elapsedSeconds()
{
    const auto now = Clock::now();
    const auto overdue = now - nextLook_;
    if (overdue > interval_)
        current_->since += overdue;
    nextLook_ = now + interval_;
    return std::chrono::duration<double>(now - current_->since).count();
}

void CorpusWatchdog::watch()
{
    const auto abort = settings_.abort; // is called when nothing else of ours need be left

    std::unique_lock held(lock_);
    std::optional<Verdict> verdict;
    while (!verdict) {
        if (finishing_.wait_for(held, interval_, [this] { return finished_; }))
            return;
        verdict = this->verdict();
    }

    CorpusRecord result = current_->start;
    result.event = "result";
    result.status = verdict->status;
    result.error = verdict->error;
    result.ms = verdict->ms;
    const auto error = answerLocked(result, settings_.footprint());
    settings_.judged(result, error);
    aborted_ = true;
    held.unlock();
    abort(error ? writeErrorStatus : verdict->exitStatus);
}

std::optional<CorpusWatchdog::Verdict> CorpusWatchdog::verdict()
{
    if (!current_)
        return std::nullopt;
    const double elapsed = elapsedSeconds();
    const double ms = elapsed * millisecondsPerSecond;
    if (elapsed > settings_.timeout)
        return Verdict{"timeout", "no result after " + Numbers::shortest(settings_.timeout) + " s",
                       ms, timeoutStatus};
    const std::int64_t most = settings_.maxMemoryMiB;
    if (settings_.footprint().current > most)
        return Verdict{"memory", "footprint over " + std::to_string(most) + " MiB", ms,
                       memoryStatus};
    return std::nullopt;
}

std::error_code CorpusWatchdog::answerLocked(CorpusRecord& result,
                                             ProcessFootprint::Mebibytes footprint)
{
    result.footprintMiB = footprint.lifetimeMax;
    result.t = CorpusRecord::now();
    const auto error = writeLocked(result);
    if (error)
        std::ignore = handle_.cut(current_->place); // the first error is the one to tell
    current_.reset();
    return error;
}

// Memory that skins have freed stays with the process, to be used again, and would count as the
// next skin's. It goes back to the system when it is a good part of the limit; after each skin it
// would double the processor's time.
void CorpusWatchdog::makeRoom(std::int64_t footprintMiB)
{
    constexpr std::int64_t partOfLimit = 8;
    if (footprintMiB - emptyFootprintMiB_ <= settings_.maxMemoryMiB / partOfLimit)
        return;
    Process::releaseFreeMemory();
    emptyFootprintMiB_ = settings_.footprint().current;
}

std::error_code CorpusWatchdog::writeLocked(const CorpusRecord& record)
{
    return handle_.append(record.line());
}

}
