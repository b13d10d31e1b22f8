// The cutting steps that the passes of a search have in common. A step searches every standard
// row on what is left of the list, and the search of a row depends on its length and price, not
// on where it stands; the arrangement only settles ties between rows whose figures rank first
// equally. So passes in different arrangements take the same steps up to their first such tie,
// and each step is worked out once, on the first pass that takes it, for all of them.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "engine/choose_next_pattern.h"
#include "engine/pass_outcome.h"
#include "state/module1.h"

namespace brennik {

class SharedSteps {
public:
    // `start` is classified, with its master list and TotalPieces set; arrangements name its rows.
    // `threads` threads may work out passes side by side.
    SharedSteps(const Module1& start, int threads);

    // The outcome of the pass in `arrangement`, worked out by thread `thread` (from 0): its steps
    // are read from those worked out so far, and the ones not yet met are worked out now. Before
    // each step, `beaten` may stop the pass where it is (PassOutcome::beaten).
    PassOutcome OutcomeOf(const Arrangement& arrangement, int thread,
                          const std::function<bool(const PassProgress&)>& beaten);

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
        // While the first length still wanted is `boundsFirst` (0: no bounds), no row's figure
        // can be lower than its bound: the quantities only fall, so every pattern a row could
        // cut now it could cut before, when its figure was found. A row whose bound ranks
        // behind a row already searched needs no search.
        int boundsFirst = 0;
        StdRows<float> bounds;
        std::once_flag searched;
        RowSet rankedFirst = 0;  // empty when no row has a pattern
        std::array<Step*, MaxStdLengths> next{};
        std::unique_ptr<Searches> last;  // when some pass ends with this step
    };
    // What one thread works with: two copies of start, one for the steps it works out and one
    // for the last step of each pass, and the steps it has worked out, which it alone adds to.
    struct Hand {
        std::unique_ptr<Module1> work;
        std::unique_ptr<Module1> scratch;
        std::deque<Step> kept;
    };

    void Search(Step& step, Hand& hand);

    const Module1& start_;
    std::vector<Hand> hands_;
    Step* first_ = nullptr;  // the pass before its first step
};

}  // namespace brennik
