#include "engine/pass_outcome.h"

#include <algorithm>
#include <future>
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

std::map<Arrangement, PassOutcome> OutcomesOf(const Module1& m,
                                              const std::vector<Arrangement>& arrangements) {
    std::vector<Arrangement> distinct = arrangements;
    std::sort(distinct.begin(), distinct.end());
    distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());

    const std::size_t workers = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1,
                                                        distinct.size() == 0 ? 1 : distinct.size());
    // Worker w takes every w-th arrangement; each has its own copy of the block and, being a
    // thread of its own, its own memory of patterns.
    std::vector<std::future<std::vector<PassOutcome>>> shares;
    for (std::size_t w = 0; w < workers; ++w) {
        shares.push_back(std::async(std::launch::async, [&m, &distinct, w, workers] {
            auto work = std::make_unique<Module1>(m);
            std::vector<PassOutcome> outcomes;
            for (std::size_t k = w; k < distinct.size(); k += workers) {
                outcomes.push_back(RunLoop(*work, m, distinct[k]));
            }
            return outcomes;
        }));
    }
    std::map<Arrangement, PassOutcome> outcomes;
    for (std::size_t w = 0; w < workers; ++w) {
        std::vector<PassOutcome> share = shares[w].get();
        for (std::size_t k = w, j = 0; k < distinct.size(); k += workers, ++j) {
            outcomes.emplace(distinct[k], share[j]);
        }
    }
    return outcomes;
}

}  // namespace brennik
