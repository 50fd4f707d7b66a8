#pragma once

#include <chrono>
#include <cstdint>

namespace SkinKit {

// What loading one skin may still cost. The archive and every parser of its files share one meter,
// so the bounds hold whatever a file does and in whatever order.
//
// Time: loops that a file makes long ask the meter. Once the time is up it stays so, the loops end
// early, and whoever began the load rejects the skin: the result is complete or an error.
// Memory: what is kept of a skin beside its files and sheets, and what parsing needs meanwhile.
// Something that finds too little left is left out.
class LoadMeter {
public:
    using Time = std::chrono::nanoseconds;
    using Clock = Time (*)(); // the processor time that the thread has used

    static constexpr std::int64_t defaultMemory = 32 << 20;

    // Without a limit of time.
    LoadMeter() = default;
    LoadMeter(Clock clock, Time limit) : clock_(clock), start_(clock()), limit_(limit) {}
    LoadMeter(const LoadMeter&) = delete;
    LoadMeter& operator=(const LoadMeter&) = delete;

    // Whether time is left after reading so many bytes. Asks the clock once for every 64 KiB.
    bool hasTimeAfter(std::int64_t bytes)
    {
        constexpr std::int64_t bytesBetweenLooks = 64 << 10;
        unchecked_ += bytes;
        if (unchecked_ < bytesBetweenLooks)
            return !isOutOfTime_;
        unchecked_ = 0;
        return hasTimeFor(Time(0));
    }

    // Whether a step that takes at most so long, and can't be interrupted, may begin.
    bool hasTimeFor(Time step)
    {
        if (clock_ != nullptr && clock_() - start_ + step > limit_)
            isOutOfTime_ = true;
        return !isOutOfTime_;
    }

    bool isOutOfTime() const { return isOutOfTime_; }
    // What remains for another meter of the same skin.
    Time timeLeft() const { return clock_ != nullptr ? limit_ - (clock_() - start_) : Time::max(); }

    // Takes so many bytes of memory, or nothing when fewer are left.
    bool take(std::int64_t bytes)
    {
        if (bytes > memory_)
            return false;
        memory_ -= bytes;
        return true;
    }
    void giveBack(std::int64_t bytes) { memory_ += bytes; }

    // Memory that is needed only for a while: gives back at its end what was taken through it.
    class Scratch {
    public:
        explicit Scratch(LoadMeter& shared) : meter(shared) {}
        ~Scratch() { meter.giveBack(taken_); }
        Scratch(const Scratch&) = delete;
        Scratch& operator=(const Scratch&) = delete;

        bool take(std::int64_t bytes)
        {
            const bool isTaken = meter.take(bytes);
            taken_ += isTaken ? bytes : 0;
            return isTaken;
        }
        // So much of it is needed for good.
        void keep(std::int64_t bytes) { taken_ -= bytes; }

        LoadMeter& meter;

    private:
        std::int64_t taken_ = 0;
    };

private:
    Clock clock_ = nullptr;
    Time start_{};
    Time limit_{};
    std::int64_t unchecked_ = 0; // bytes since the last look at the clock
    bool isOutOfTime_ = false;
    std::int64_t memory_ = defaultMemory;
};

}
