#include "SkinKit/Tooling/CorpusWatchdog.h"

#include "SkinKit/Platform/Numbers.h"
#include "SkinKit/Platform/Process.h"

#include <tuple>
#include <utility>

namespace SkinKit {
namespace {

constexpr double millisecondsPerSecond = 1000;

}

CorpusWatchdog::CorpusWatchdog(Journal handle, Settings settings)
    : settings_(std::move(settings)), handle_(std::move(handle))
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
    current_ = Current{start, place, Clock::now()};
    return Turn::taken;
}

CorpusWatchdog::Result CorpusWatchdog::answer(CorpusRecord result)
{
    const std::lock_guard held(lock_);
    if (aborted_)
        return Turn::aborted;
    result.ms = current_->elapsedSeconds() * millisecondsPerSecond;
    if (const auto error = answerLocked(result))
        return std::unexpected(error);
    return Turn::taken;
}

std::error_code CorpusWatchdog::write(const CorpusRecord& record)
{
    const std::lock_guard held(lock_);
    return writeLocked(record);
}

double CorpusWatchdog::Current::elapsedSeconds() const
{
    return std::chrono::duration<double>(Clock::now() - since).count();
}

void CorpusWatchdog::watch()
{
    const std::chrono::duration<double> pollInterval(settings_.pollInterval);
    const auto abort = settings_.abort; // is called when nothing else of ours need be left

    std::unique_lock held(lock_);
    std::optional<Verdict> verdict;
    while (!verdict) {
        if (finishing_.wait_for(held, pollInterval, [this] { return finished_; }))
            return;
        verdict = this->verdict();
    }

    CorpusRecord result = current_->start;
    result.event = "result";
    result.status = verdict->status;
    result.error = verdict->error;
    result.ms = verdict->ms;
    const auto error = answerLocked(result);
    settings_.judged(result, error);
    aborted_ = true;
    held.unlock();
    abort(error ? writeErrorStatus : verdict->exitStatus);
}

std::optional<CorpusWatchdog::Verdict> CorpusWatchdog::verdict() const
{
    if (!current_)
        return std::nullopt;
    const double elapsed = current_->elapsedSeconds();
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

std::error_code CorpusWatchdog::answerLocked(CorpusRecord& result)
{
    result.footprintMiB = settings_.footprint().lifetimeMax;
    result.t = CorpusRecord::now();
    const auto error = writeLocked(result);
    if (error)
        std::ignore = handle_.cut(current_->place); // the first error is the one to tell
    current_.reset();
    return error;
}

std::error_code CorpusWatchdog::writeLocked(const CorpusRecord& record)
{
    return handle_.append(record.line());
}

}
