// The cutting loops of a search's passes, worked out apart from the shared block: by the thread
// that asks for each, and ahead of it by helper threads on the other cores.
#pragma once

#include <atomic>
#include <condition_variable>
#include <exception>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "engine/pass_bound.h"
#include "engine/pass_outcome.h"
#include "engine/shared_steps.h"
#include "state/module1.h"

namespace brennik {

// The plain route runs every pass on its own, step by step, in its turn on the thread that asks
// for it: no work ahead and no steps shared. The program never takes it; the benchmark and the
// tests set it beside the plain pattern search as the reference the engine is held to.
void UsePlainPasses(bool plain);

// Each distinct arrangement is worked out once, the passes sharing the steps they have in
// common: by the thread that asks for it, unless a helper, working back from the last one
// while the attempts go forward, has taken it already. On one core there is no helper, and
// each pass is worked out when its attempt comes.
//
// Given a figure to beat, a pass stops (beaten) as soon as it cannot end below the figure its
// attempt will have to beat: the least of that one and of the figures of the passes before it
// known so far. The last attempt's pass, which leaves the block as the search ends, always runs
// to its end.
class PassesAhead {
public:
    // `m` is classified, with its master list and TotalPieces set; the passes start from a
    // copy of it, so that the search may go on changing it.
    PassesAhead(const Module1& m, const std::vector<Arrangement>& arrangements,
                std::optional<double> figureToBeat = std::nullopt);
    ~PassesAhead();
    PassesAhead(const PassesAhead&) = delete;
    PassesAhead& operator=(const PassesAhead&) = delete;

    // The outcome of one of the arrangements given, worked out now if no helper has taken it.
    const PassOutcome& Of(const Arrangement& arrangement);

private:
    PassOutcome WorkOut(std::size_t k, int thread);
    void Keep(std::size_t k, const PassOutcome& outcome);
    void Help(int thread);
    // Whether the pass of arrangement k, come to `progress`, can no longer beat its attempt.
    bool Beaten(std::size_t k, const PassProgress& progress);

    std::unique_ptr<const Module1> start_;
    bool plain_ = false;
    std::unique_ptr<SharedSteps> steps_;
    std::optional<PassBound> bound_;
    double figureToBeat_ = 0;
    std::size_t lastAttempt_ = 0;  // its arrangement
    std::vector<Arrangement> distinct_;
    std::map<Arrangement, std::size_t> indexOf_;
    std::vector<PassOutcome> outcomes_;
    std::vector<bool> ready_;
    std::vector<double> figures_;  // of the passes run to their end; infinity for the others
    std::unique_ptr<std::atomic<bool>[]> taken_;
    std::unique_ptr<Module1> work_;  // the plain route's copy
    std::exception_ptr failure_;
    std::atomic<bool> stop_{false};
    std::mutex mutex_;
    std::condition_variable readyChanged_;
    std::vector<std::thread> helpers_;
};

}  // namespace brennik
