#include "engine/shared_steps.h"

#include "engine/choose_next_pattern.h"
#include "engine/cutting_pass.h"

namespace brennik {

namespace {

Arrangement StartingOrder() {
    Arrangement order;
    for (int k = 0; k < MaxStdLengths; ++k) {
        order[k] = static_cast<uint8_t>(k + 1);
    }
    return order;
}

// The row of `rows` (bit r - 1 for row r) that stands first in `arrangement`.
int FirstIn(const Arrangement& arrangement, uint8_t rows) {
    for (uint8_t row : arrangement) {
        if (rows & 1u << (row - 1)) {
            return row;
        }
    }
    return 0;
}

}  // namespace

SharedSteps::SharedSteps(const Module1& start) : start_(start) {
    auto work = std::make_unique<Module1>(start);
    StartPass(*work, start, StartingOrder());
    first_ = &Keep(PassProgress::Of(*work));
}

SharedSteps::Step& SharedSteps::Keep(const PassProgress& progress) {
    std::lock_guard<std::mutex> lock(keeping_);
    return steps_.emplace_back(progress);
}

// Works out the step that follows `step` in the starting order, and what each row ranked first
// would leave if the arrangement chose it.
void SharedSteps::Search(Step& step, Module1& scratch) {
    StartPass(scratch, start_, StartingOrder());
    step.progress.RestoreInto(scratch);
    SearchEveryRow(scratch);
    step.rankedFirst = RowsRankedFirst(scratch);
    for (int row = 1; row <= MaxStdLengths; ++row) {
        if (step.rankedFirst & 1u << (row - 1)) {
            step.progress.RestoreInto(scratch);
            ChooseRow(scratch, row);
            ApplyChosenPattern(scratch);
            step.next[row - 1] = &Keep(PassProgress::Of(scratch));
        }
    }
}

void SharedSteps::StartBeforeLastStep(Module1& work, Module1& scratch,
                                      const Arrangement& arrangement) {
    Step* step = first_;
    for (;;) {
        std::call_once(step->searched, [&] { Search(*step, scratch); });
        if (step->rankedFirst == 0) {
            break;  // the pass ends here, without a pattern
        }
        Step* next = step->next[FirstIn(arrangement, step->rankedFirst) - 1];
        if (next->progress.PiecesLeft <= 0) {
            break;  // the pass ends with the next step
        }
        step = next;
    }
    StartPass(work, start_, arrangement);
    step->progress.RestoreInto(work);
    const StdRows<float> usedA = work.BarsUsedA;
    const StdRows<float> usedB = work.BarsUsedB;
    for (int k = 1; k <= MaxStdLengths; ++k) {
        work.BarsUsedA(k) = usedA(arrangement[k - 1]);
        work.BarsUsedB(k) = usedB(arrangement[k - 1]);
    }
}

}  // namespace brennik
