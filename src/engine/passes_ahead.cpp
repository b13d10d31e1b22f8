#include "engine/passes_ahead.h"

#include <algorithm>
#include <cmath>

namespace brennik {

namespace {
std::atomic<bool> plainPasses{false};
}

void UsePlainPasses(bool plain) {
    plainPasses = plain;
}

PassesAhead::PassesAhead(const Module1& m, const std::vector<Arrangement>& arrangements,
                         std::optional<double> figureToBeat)
    : start_(std::make_unique<const Module1>(m)), plain_(plainPasses) {
    for (const Arrangement& arrangement : arrangements) {
        if (indexOf_.emplace(arrangement, distinct_.size()).second) {
            distinct_.push_back(arrangement);
        }
    }
    outcomes_.resize(distinct_.size());
    ready_.assign(distinct_.size(), false);
    figures_.assign(distinct_.size(), INFINITY);
    if (figureToBeat && !arrangements.empty()) {
        bound_.emplace(*start_);
        figureToBeat_ = *figureToBeat;
        lastAttempt_ = indexOf_.at(arrangements.back());
    }
    taken_ = std::make_unique<std::atomic<bool>[]>(distinct_.size());
    if (plain_) {
        work_ = std::make_unique<Module1>(*start_);
        return;
    }
    // Starting a thread costs about as much as a few short passes, so a search of a few
    // arrangements is done sooner without a helper.
    constexpr std::size_t FewArrangements = 6;
    const unsigned helpers = distinct_.size() <= FewArrangements
                                 ? 0
                                 : std::max(std::thread::hardware_concurrency(), 1u) - 1;
    steps_ = std::make_unique<SharedSteps>(*start_, static_cast<int>(helpers + 1));
    for (unsigned h = 1; h <= helpers; ++h) {
        helpers_.emplace_back([this, h] { Help(static_cast<int>(h)); });
    }
}

PassesAhead::~PassesAhead() {
    stop_ = true;
    for (std::thread& helper : helpers_) {
        helper.join();
    }
}

// Thread 0 is the one that asks for the outcomes; the helpers count from 1.
PassOutcome PassesAhead::WorkOut(std::size_t k, int thread) {
    if (plain_) {
        StartPass(*work_, *start_, distinct_[k]);
        return FinishPass(*work_);
    }
    return steps_->OutcomeOf(distinct_[k], thread, [this, k](const PassProgress& progress) {
        return Beaten(k, progress);
    });
}

// The distinct arrangements stand in the order of their first attempts, so the attempt of k
// comes after those of every arrangement before it: the figure it has to beat is no higher than
// any of theirs.
bool PassesAhead::Beaten(std::size_t k, const PassProgress& progress) {
    if (!bound_ || k == lastAttempt_) {
        return false;
    }
    double toBeat = figureToBeat_;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        toBeat = std::min(toBeat, *std::min_element(figures_.begin(), figures_.begin() + k));
    }
    return bound_->CannotBeat(progress, toBeat);
}

void PassesAhead::Keep(std::size_t k, const PassOutcome& outcome) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        outcomes_[k] = outcome;
        ready_[k] = true;
        if (!outcome.beaten) {
            figures_[k] = outcome.progress.Figure(*start_);
        }
    }
    readyChanged_.notify_all();
}

// A helper works from the last arrangement back, while the attempts take theirs from the first
// on: the two meet in the middle, mostly on different steps.
void PassesAhead::Help(int thread) {
    try {
        for (std::size_t k = distinct_.size(); k-- > 0 && !stop_;) {
            if (!taken_[k].exchange(true)) {
                Keep(k, WorkOut(k, thread));
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
        Keep(k, WorkOut(k, 0));
    }
    std::unique_lock<std::mutex> lock(mutex_);
    readyChanged_.wait(lock, [this, k] { return ready_[k] || failure_ != nullptr; });
    if (!ready_[k]) {
        std::rethrow_exception(failure_);
    }
    return outcomes_[k];
}

}  // namespace brennik
