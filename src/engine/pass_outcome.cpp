#include "engine/pass_outcome.h"

#include <algorithm>
#include <thread>

#include "engine/cutting_pass.h"
#include "state/ordering.h"

namespace brennik {

namespace {

// The accumulators of both Methods, in one fixed order.
template <typename Block>
auto Accumulators(Block& m) {
    return std::array{&m.StepMatWasteB, &m.TotalMatWasteB, &m.TotalLengthB,   &m.TotalCostB,
                      &m.BarMonWasteB,  &m.StepMonWasteB,  &m.TotalMonWasteB, &m.MatWastePctB,
                      &m.MonWastePctB,  &m.StepMatWasteA,  &m.TotalMatWasteA, &m.TotalLengthA,
                      &m.TotalCostA,    &m.BarMonWasteA,   &m.StepMonWasteA,  &m.TotalMonWasteA,
                      &m.MatWastePctA,  &m.MonWastePctA};
}

// The cutting loop of a pass in one arrangement, on the worker's own copy of the block.
PassOutcome RunLoop(Module1& work, const Module1& start, const Arrangement& arrangement) {
    for (int k = 1; k <= MaxStdLengths; ++k) {
        work.StdLength(k) = start.StdLength(arrangement[k - 1]);
        work.StdPrice(k) = start.StdPrice(arrangement[k - 1]);
    }
    work.CutLength = work.MasterCutLength;
    work.CutQty = work.MasterCutQty;
    ResetPassTotals(work);
    work.PiecesLeft = work.TotalPieces;
    while (work.PiecesLeft > 0 && CutNextStep(work)) {
    }
    return PassOutcome::Of(work);
}

}  // namespace

PassOutcome PassOutcome::Of(const Module1& m) {
    PassOutcome outcome;
    outcome.PatternBars = m.PatternBars;
    outcome.PatternPieces = m.PatternPieces;
    outcome.RankMat = m.RankMat;
    outcome.RankMon = m.RankMon;
    outcome.EngineStd = m.EngineStd;
    outcome.ChosenStd = m.ChosenStd;
    outcome.ChosenWaste = m.ChosenWaste;
    outcome.ChosenBars = m.ChosenBars;
    outcome.CutQty = m.CutQty;
    outcome.PiecesLeft = m.PiecesLeft;
    outcome.PercentCut = m.PercentCut;
    const auto sources = Accumulators(m);
    std::transform(sources.begin(), sources.end(), outcome.totals.begin(),
                   [](const double* value) { return *value; });
    outcome.BarsUsedA = m.BarsUsedA;
    outcome.BarsUsedB = m.BarsUsedB;
    return outcome;
}

void PassOutcome::RestoreInto(Module1& m) const {
    m.PatternBars = PatternBars;
    m.PatternPieces = PatternPieces;
    m.RankMat = RankMat;
    m.RankMon = RankMon;
    m.EngineStd = EngineStd;
    m.ChosenStd = ChosenStd;
    m.ChosenWaste = ChosenWaste;
    m.ChosenBars = ChosenBars;
    m.CutQty = CutQty;
    m.PiecesLeft = PiecesLeft;
    m.PercentCut = PercentCut;
    const auto targets = Accumulators(m);
    for (std::size_t k = 0; k < targets.size(); ++k) {
        *targets[k] = totals[k];
    }
    m.BarsUsedA = BarsUsedA;
    m.BarsUsedB = BarsUsedB;
}

PassesAhead::PassesAhead(const Module1& m, const std::vector<Arrangement>& arrangements)
    : start_(std::make_unique<const Module1>(m)) {
    for (const Arrangement& arrangement : arrangements) {
        if (indexOf_.emplace(arrangement, distinct_.size()).second) {
            distinct_.push_back(arrangement);
        }
    }
    outcomes_.resize(distinct_.size());
    ready_.assign(distinct_.size(), false);
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

// Each worker has its own copy of the block and, being a thread of its own, its own memory of
// patterns; it takes the next arrangement that no worker has taken yet.
void PassesAhead::Work() {
    try {
        auto work = std::make_unique<Module1>(*start_);
        for (std::size_t k = next_++; k < distinct_.size() && !stop_; k = next_++) {
            PassOutcome outcome = RunLoop(*work, *start_, distinct_[k]);
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
    std::unique_lock<std::mutex> lock(mutex_);
    readyChanged_.wait(lock, [this, k] { return ready_[k] || failure_ != nullptr; });
    if (!ready_[k]) {
        std::rethrow_exception(failure_);
    }
    return outcomes_[k];
}

}  // namespace brennik
