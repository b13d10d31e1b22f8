#include "engine/pass_outcome.h"

#include <algorithm>

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

template <typename Block>
auto& FigureOf(Block& m) {
    return m.MethodA ? m.TotalCostA : m.AllPriced ? m.TotalCostB : m.TotalMatWasteB;
}

}  // namespace

double SearchFigure(const Module1& m) {
    return FigureOf(m);
}

bool SearchFigureIsCost(const Module1& m) {
    return m.MethodA || m.AllPriced;
}

double& BestFigure(Module1& m) {
    return SearchFigureIsCost(m) ? m.BestCost : m.BestMatWaste;
}

Arrangement StartingOrder() {
    Arrangement order;
    for (int k = 0; k < MaxStdLengths; ++k) {
        order[k] = static_cast<uint8_t>(k + 1);
    }
    return order;
}

PassProgress PassProgress::Of(const Module1& m) {
    PassProgress progress;
    progress.CutQty = m.CutQty;
    progress.PiecesLeft = m.PiecesLeft;
    progress.PercentCut = m.PercentCut;
    const auto sources = Accumulators(m);
    std::transform(sources.begin(), sources.end(), progress.totals.begin(),
                   [](const double* value) { return *value; });
    progress.BarsUsedA = m.BarsUsedA;
    progress.BarsUsedB = m.BarsUsedB;
    return progress;
}

void PassProgress::RestoreInto(Module1& m) const {
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

double PassProgress::Figure(const Module1& m) const {
    const auto fields = Accumulators(m);
    const auto field = std::find(fields.begin(), fields.end(), &FigureOf(m));
    return totals[static_cast<std::size_t>(field - fields.begin())];
}

PassOutcome PassOutcome::Of(const Module1& m) {
    PassOutcome outcome;
    outcome.progress = PassProgress::Of(m);
    outcome.PatternBars = m.PatternBars;
    outcome.PatternPieces = m.PatternPieces;
    outcome.RankMat = m.RankMat;
    outcome.RankMon = m.RankMon;
    outcome.EngineStd = m.EngineStd;
    outcome.ChosenStd = m.ChosenStd;
    outcome.ChosenWaste = m.ChosenWaste;
    outcome.ChosenBars = m.ChosenBars;
    return outcome;
}

void PassOutcome::RestoreInto(Module1& m) const {
    progress.RestoreInto(m);
    m.PatternBars = PatternBars;
    m.PatternPieces = PatternPieces;
    m.RankMat = RankMat;
    m.RankMon = RankMon;
    m.EngineStd = EngineStd;
    m.ChosenStd = ChosenStd;
    m.ChosenWaste = ChosenWaste;
    m.ChosenBars = ChosenBars;
}

void StartPass(Module1& work, const Module1& start, const Arrangement& arrangement) {
    for (int k = 1; k <= MaxStdLengths; ++k) {
        work.StdLength(k) = start.StdLength(arrangement[k - 1]);
        work.StdPrice(k) = start.StdPrice(arrangement[k - 1]);
    }
    work.CutLength = work.MasterCutLength;
    work.CutQty = work.MasterCutQty;
    ResetPassTotals(work);
    work.PiecesLeft = work.TotalPieces;
}

PassOutcome FinishPass(Module1& work) {
    while (work.PiecesLeft > 0 && CutNextStep(work)) {
    }
    return PassOutcome::Of(work);
}

}  // namespace brennik
