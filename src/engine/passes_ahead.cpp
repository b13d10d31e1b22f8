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
    taken_ = std::make_unique<std::atomic<bool>[]>(distinct_.size());
    work_ = std::make_unique<Module1>(*start_);
    if (plain_) {
        return;
    }
    scratch_ = std::make_unique<Module1>(*start_);
    steps_ = std::make_unique<SharedSteps>(*start_);
    // Starting a thread costs about as much as a few short passes, so a search of a few
    // arrangements is done sooner without a helper.
    constexpr std::size_t FewArrangements = 6;
    const std::size_t helpers = distinct_.size() <= FewArrangements
                                    ? 0
                                    : std::max(std::thread::hardware_concurrency(), 1u) - 1;
    for (std::size_t h = 0; h < helpers; ++h) {
        helpers_.emplace_back([this] { Help(); });
    }
}

PassesAhead::~PassesAhead() {
    stop_ = true;
    for (std::thread& helper : helpers_) {
        helper.join();
    }
}

PassOutcome PassesAhead::WorkOut(std::size_t k, Module1& work, Module1& scratch) {
    if (plain_) {
        StartPass(work, *start_, distinct_[k]);
        return FinishPass(work);
    }
    return steps_->OutcomeOf(distinct_[k], work, scratch);
}

void PassesAhead::Keep(std::size_t k, const PassOutcome& outcome) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        outcomes_[k] = outcome;
        ready_[k] = true;
    }
    readyChanged_.notify_all();
}

// A helper works from the last arrangement back, while the attempts take theirs from the first
// on: the two meet in the middle, mostly on different steps.
void PassesAhead::Help() {
    try {
        auto work = std::make_unique<Module1>(*start_);
        auto scratch = std::make_unique<Module1>(*start_);
        for (std::size_t k = distinct_.size(); k-- > 0 && !stop_;) {
            if (!taken_[k].exchange(true)) {
                Keep(k, WorkOut(k, *work, *scratch));
            }
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
    if (!taken_[k].exchange(true)) {
        Keep(k, WorkOut(k, *work_, *scratch_));
    }
    std::unique_lock<std::mutex> lock(mutex_);
    readyChanged_.wait(lock, [this, k] { return ready_[k] || failure_ != nullptr; });
    if (!ready_[k]) {
        std::rethrow_exception(failure_);
    }
    return outcomes_[k];
}

}  // namespace brennik
