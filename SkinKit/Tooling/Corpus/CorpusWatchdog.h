#pragma once

#include "SkinKit/System/Journal.h"
#include "SkinKit/System/Process.h"
#include "SkinKit/Tooling/Corpus/CorpusRecord.h"

#include <chrono>
#include <condition_variable>
#include <expected>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <system_error>
#include <thread>

namespace SkinKit {

// The results file of a run, and the thread that answers for a skin that does not answer itself.
// One lock decides between the two: whoever takes it first writes the skin's result, and the other
// writes nothing.
class CorpusWatchdog {
public:
    // The exit statuses that `abort` gets: too slow, too large, or the verdict could not be
    // written.
    static constexpr int timeoutStatus = 124;
    static constexpr int memoryStatus = 125;
    static constexpr int writeErrorStatus = 2;

    struct Settings {
        double timeout = 0; // seconds
        std::int64_t maxMemoryMiB = 0;
        double pollInterval = 0; // seconds
        std::function<ProcessFootprint::Mebibytes()> footprint;
        std::function<void(int status)> abort; // ends the process
        // Called before, with the verdict and why it could not be written, if so.
        std::function<void(const CorpusRecord&, std::error_code)> judged;
    };

    CorpusWatchdog(Journal handle, Settings settings);
    // Ends the thread, unless that is on its way to end the process.
    ~CorpusWatchdog();
    CorpusWatchdog(const CorpusWatchdog&) = delete;

    // Begins to look after the skins; fails when there is no thread to be had.
    std::error_code startThread();

    enum class Turn { taken, aborted };
    using Result = std::expected<Turn, std::error_code>;

    bool isAborted();
    // Writes that a skin is started, and looks after it from now on.
    Result start(const CorpusRecord& start);
    // Writes the skin's result, adding how long it took and with what memory, unless the watchdog
    // answered. One that can't be written takes the skin's start with it: the skin then counts as
    // not yet tried, not as crashed. What the skin took of memory is freed by now.
    Result answer(CorpusRecord result);
    // Writes any other record.
    std::error_code write(const CorpusRecord& record);

private:
    using Clock = std::chrono::steady_clock;

    struct Current {
        CorpusRecord start;
        std::int64_t place = 0; // of its record in the file
        Clock::time_point since;
    };
    struct Verdict {
        std::string status;
        std::string error;
        double ms = 0;
        int exitStatus = 0;
    };

    void watch();
    double elapsedSeconds();
    std::optional<Verdict> verdict();
    std::error_code answerLocked(CorpusRecord& result, ProcessFootprint::Mebibytes footprint);
    void makeRoom(std::int64_t footprintMiB);
    std::error_code writeLocked(const CorpusRecord& record);

    const Settings settings_;
    const Clock::duration interval_; // between looks
    std::mutex lock_;                // of all below but the thread
    std::condition_variable finishing_;
    std::optional<Current> current_;
    Clock::time_point nextLook_;         // when the thread is due
    std::int64_t emptyFootprintMiB_ = 0; // after freed memory was last given back
    bool finished_ = false;
    bool aborted_ = false;
    Journal handle_;
    std::thread thread_;
};

}
