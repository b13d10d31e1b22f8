// The cutting steps that the passes of a search have in common. A step searches every standard
// row on what is left of the list, and the search of a row depends on its length and price, not
// on where it stands; the arrangement only settles ties between rows whose figures rank first
// equally. So passes in different arrangements take the same steps up to their first such tie,
// and each step is worked out once, on the first pass that takes it, for all of them.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>

#include "engine/pass_outcome.h"
#include "state/module1.h"

namespace brennik {

class SharedSteps {
public:
    // `start` is classified, with its master list and TotalPieces set; arrangements name its rows.
    explicit SharedSteps(const Module1& start);

    // The outcome of the pass in `arrangement`. Its steps are read from those worked out so far;
    // the ones not yet met are worked out on `scratch`, and the last is taken on `work`: both
    // copies of start, used by one thread at a time. Threads may run this side by side, each
    // with its own two copies.
    PassOutcome OutcomeOf(const Arrangement& arrangement, Module1& work, Module1& scratch);

private:
    // What the searches of a step leave, row by row: kept for a step with which a pass ends, so
    // that its last ranking can be made in any arrangement.
    struct Searches {
        StdRows<int32_t> PatternBars;
        Table<int32_t, MaxStdLengths, MaxCutLengths> PatternPieces;
        StdRows<float> waste;
        StdRows<float> rate;
        uint8_t EngineStd = 0;
    };
    // The pass after some steps: what they left, then, once the next step is worked out, the
    // rows whose patterns rank first in it and what each of them would leave.
    struct Step {
        explicit Step(const PassProgress& before) : progress(before) {}
        PassProgress progress;  // the bars used stand by rows of the starting order
        std::once_flag searched;
        uint8_t rankedFirst = 0;  // bit r - 1 for row r; 0 when no row has a pattern
        std::array<Step*, MaxStdLengths> next{};
        std::unique_ptr<Searches> last;  // when some pass ends with this step
    };

    void Search(Step& step, Module1& scratch);
    Step& Keep(const PassProgress& progress);

    const Module1& start_;
    Step* first_ = nullptr;  // the pass before its first step
    std::mutex keeping_;
    std::deque<Step> steps_;
};

}  // namespace brennik
