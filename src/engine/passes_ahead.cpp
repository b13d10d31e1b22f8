#include "engine/passes_ahead.h"

#include <algorithm>

namespace brennik {

namespace {
std::atomic<bool> plainPasses{false};
}

void UsePlainPasses(bool plain) {
    plainPasses = plain;
}

PassesAhead::PassesAhead(const Module1& m, const std::vector<Arrangement>& arrangements)
    : start_(std::make_unique<const Module1>(m)), plain_(plainPasses) {
    for (const Arrangement& arrangement : arrangements) {
        if (indexOf_.emplace(arrangement, distinct_.size()).second) {
            distinct_.push_back(arrangement);
        }
    }
    outcomes_.resize(distinct_.size());
    ready_.assign(distinct_.size(), false);
    if (plain_) {
        return;
    }
    steps_ = std::make_unique<SharedSteps>(*start_);
    const std::size_t workers = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1,
                                                        std::max<std::size_t>(distinct_.size(), 1));
    for (std::size_t w = 0; w < workers; ++w) {
        workers_.emplace_back([this] { Work(); });
    }
}

PassesAhead::~PassesAhead() {
    stop_ = true;
    for (std::thread& worker : workers_) {
        worker.join();
    }
}

// Each worker has its own copies of the block and, being a thread of its own, its own memory of
// patterns; it takes the next arrangement that no worker has taken yet.
void PassesAhead::Work() {
    try {
        auto work = std::make_unique<Module1>(*start_);
        auto scratch = std::make_unique<Module1>(*start_);
        for (std::size_t k = next_++; k < distinct_.size() && !stop_; k = next_++) {
            steps_->StartBeforeLastStep(*work, *scratch, distinct_[k]);
            PassOutcome outcome = FinishPass(*work);
            {
                std::lock_guard<std::mutex> lock(mutex_);
                outcomes_[k] = outcome;
                ready_[k] = true;
            }
            readyChanged_.notify_all();
        }
    } catch (...) {
        {
            std::lock_guard<std::mutex> lock(mutex_);
            failure_ = std::current_exception();
        }
        readyChanged_.notify_all();
    }
}

const PassOutcome& PassesAhead::Of(const Arrangement& arrangement) {
    const std::size_t k = indexOf_.at(arrangement);
    if (plain_) {
        if (!ready_[k]) {
            auto work = std::make_unique<Module1>(*start_);
            StartPass(*work, *start_, arrangement);
            outcomes_[k] = FinishPass(*work);
            ready_[k] = true;
        }
        return outcomes_[k];
    }
    std::unique_lock<std::mutex> lock(mutex_);
    readyChanged_.wait(lock, [this, k] { return ready_[k] || failure_ != nullptr; });
    if (!ready_[k]) {
        std::rethrow_exception(failure_);
    }
    return outcomes_[k];
}

}  // namespace brennik
