// When a long search must stop: a moment on the steady clock, or earlier when another thread
// asks it to, through a flag the search only reads. The loops of the search ask Passed() often
// enough that a stop is seen within milliseconds.
#pragma once

#include <atomic>
#include <chrono>

namespace brennik {

class Deadline {
public:
    // `cancel` may be nullptr; otherwise it must outlive the deadline.
    Deadline(double seconds, const std::atomic<bool>* cancel);

    bool Passed() const;
    bool Cancelled() const;
    double SecondsLeft() const;
    // A deadline for part of the work: the earlier of this one and `seconds` from now, cancelled
    // with this one.
    Deadline Within(double seconds) const;

private:
    using Moment = std::chrono::steady_clock::time_point;
    Deadline(Moment end, const std::atomic<bool>* cancel) : end_(end), cancel_(cancel) {}

    Moment end_;
    const std::atomic<bool>* cancel_;
};

}  // namespace brennik
