#include "engine/shared_steps.h"

#include <algorithm>
#include <numeric>

#include "engine/choose_next_pattern.h"
#include "engine/cutting_pass.h"

namespace brennik {

namespace {

// The row of `rows` that stands first in `arrangement`.
int FirstIn(const Arrangement& arrangement, RowSet rows) {
    for (uint8_t row : arrangement) {
        if (Holds(rows, row)) {
            return row;
        }
    }
    return 0;
}

// The first length with pieces still wanted, which every pattern holds; 0 when none is left.
int FirstWanted(const Module1& m) {
    for (int i = 1; i <= m.CutCount; ++i) {
        if (m.CutQty(i) > 0) {
            return i;
        }
    }
    return 0;
}

}  // namespace

SharedSteps::SharedSteps(const Module1& start, int threads) : start_(start), hands_(threads) {
    for (Hand& hand : hands_) {
        hand.work = std::make_unique<Module1>(start);
        hand.scratch = std::make_unique<Module1>(start);
    }
    Module1& work = *hands_[0].work;
    StartPass(work, start, StartingOrder());
    first_ = &hands_[0].kept.emplace_back(PassProgress::Of(work));
}

// Works out the step that follows `step` in the starting order, and what each row ranked first
// would leave if the arrangement chose it. Rows are searched lowest bound first, up to the
// first whose bound already ranks behind a row searched.
void SharedSteps::Search(Step& step, Hand& hand) {
    Module1& scratch = *hand.scratch;
    StartPass(scratch, start_, StartingOrder());
    step.progress.RestoreInto(scratch);
    const int first = FirstWanted(scratch);
    const bool bounded = first != 0 && step.boundsFirst == first;
    std::array<int, MaxStdLengths> order;
    std::iota(order.begin(), order.end(), 1);
    if (bounded) {
        std::stable_sort(order.begin(), order.end(),
                         [&](int a, int b) { return step.bounds(a) < step.bounds(b); });
    }
    ClearRows(scratch);
    RowSet searched = 0;
    for (int row : order) {
        if (bounded && RanksBehindOneOf(scratch, searched, step.bounds(row))) {
            break;
        }
        SearchRow(scratch, row);
        searched = With(searched, row);
    }
    StdRows<float> nextBounds = step.bounds;
    for (int row = 1; row <= MaxStdLengths; ++row) {
        if (Holds(searched, row)) {
            nextBounds(row) = RankingFigure(scratch, row);
        }
    }

    step.rankedFirst = RowsRankedFirst(scratch, searched);
    bool passEnds = step.rankedFirst == 0;
    for (int row = 1; row <= MaxStdLengths; ++row) {
        if (Holds(step.rankedFirst, row)) {
            step.progress.RestoreInto(scratch);
            ChooseRow(scratch, row);
            ApplyChosenPattern(scratch);
            Step& next = hand.kept.emplace_back(PassProgress::Of(scratch));
            next.boundsFirst = first;
            next.bounds = nextBounds;
            step.next[row - 1] = &next;
            passEnds = passEnds || scratch.PiecesLeft <= 0;
        }
    }
    if (passEnds) {
        // Some pass ends here, and its last ranking needs every row.
        step.progress.RestoreInto(scratch);
        SearchEveryRow(scratch);
        step.last = std::make_unique<Searches>();
        step.last->PatternBars = scratch.PatternBars;
        step.last->PatternPieces = scratch.PatternPieces;
        for (int row = 1; row <= MaxStdLengths; ++row) {
            step.last->waste(row) = scratch.RankMat(row, 1);
            step.last->rate(row) = scratch.RankMon(row, 1);
        }
        step.last->EngineStd = scratch.EngineStd;
    }
}

PassOutcome SharedSteps::OutcomeOf(const Arrangement& arrangement, int thread,
                                   const std::function<bool(const PassProgress&)>& beaten) {
    Hand& hand = hands_[static_cast<std::size_t>(thread)];
    Step* step = first_;
    for (;;) {
        if (beaten(step->progress)) {
            PassOutcome outcome;
            outcome.progress = step->progress;
            outcome.beaten = true;
            return outcome;
        }
        std::call_once(step->searched, [&] { Search(*step, hand); });
        if (step->rankedFirst == 0) {
            break;  // the pass ends here, without a pattern
        }
        Step* next = step->next[FirstIn(arrangement, step->rankedFirst) - 1];
        if (next->progress.PiecesLeft <= 0) {
            break;  // the pass ends with this step
        }
        step = next;
    }

    // The last step in this arrangement: every row's search as it stands in it, then the
    // ranking, the choice and the cut.
    Module1& work = *hand.work;
    StartPass(work, start_, arrangement);
    step->progress.RestoreInto(work);
    const Searches& searches = *step->last;
    for (int k = 1; k <= MaxStdLengths; ++k) {
        const int row = arrangement[k - 1];
        work.BarsUsedA(k) = step->progress.BarsUsedA(row);
        work.BarsUsedB(k) = step->progress.BarsUsedB(row);
        work.PatternBars(k) = searches.PatternBars(row);
        for (int i = 1; i <= work.CutCount; ++i) {
            work.PatternPieces(k, i) = searches.PatternPieces(row, i);
        }
        work.RankMat(k, 1) = searches.waste(row);
        work.RankMat(k, 2) = static_cast<float>(k);
        if (work.MethodA) {
            work.RankMon(k, 1) = searches.rate(row);
            work.RankMon(k, 2) = static_cast<float>(k);
        }
    }
    work.EngineStd = searches.EngineStd;
    RankEveryRow(work);
    CutChosenPattern(work);
    return PassOutcome::Of(work);
}

}  // namespace brennik
