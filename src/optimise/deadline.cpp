#include "optimise/deadline.h"

#include <algorithm>

namespace brennik {

namespace {

std::chrono::steady_clock::duration Span(double seconds) {
    // Anything beyond a day is as good as no limit, and stays clear of the clock's range.
    const double held = std::clamp(seconds, 0.0, 86400.0);
    return std::chrono::duration_cast<std::chrono::steady_clock::duration>(
        std::chrono::duration<double>(held));
}

}  // namespace

Deadline::Deadline(double seconds, const std::atomic<bool>* cancel)
    : end_(std::chrono::steady_clock::now() + Span(seconds)), cancel_(cancel) {}

bool Deadline::Cancelled() const {
    return cancel_ != nullptr && cancel_->load(std::memory_order_relaxed);
}

bool Deadline::Passed() const {
    return Cancelled() || std::chrono::steady_clock::now() >= end_;
}

double Deadline::SecondsLeft() const {
    if (Cancelled()) {
        return 0;
    }
    const std::chrono::duration<double> left = end_ - std::chrono::steady_clock::now();
    return std::max(0.0, left.count());
}

Deadline Deadline::Within(double seconds) const {
    return Deadline(std::min(end_, std::chrono::steady_clock::now() + Span(seconds)), cancel_);
}

}  // namespace brennik
