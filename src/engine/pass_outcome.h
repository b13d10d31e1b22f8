// What the cutting loop of a pass leaves in the shared block, kept apart from it. A pass of the
// Advanced search depends on nothing but the arrangement of the standard rows, so its outcome
// can be worked out away from the block and put back when its attempt comes, with the same
// effect as running the loop there and then.
#pragma once

#include <array>
#include <cstdint>

#include "state/module1.h"

namespace brennik {

// What the Advanced search compares, the lower the better: the total cost of Method A, or of
// Method B where every standard length has a price, else the material Method B leaves over.
double SearchFigure(const Module1& m);
// Whether that figure is a cost, and not the material left over.
bool SearchFigureIsCost(const Module1& m);
// The best of that figure so far, which an attempt has to beat.
double& BestFigure(Module1& m);

// An arrangement as the rows of the starting order that stand in rows 1 to 6.
using Arrangement = std::array<uint8_t, MaxStdLengths>;

// The starting order itself: row k in row k.
Arrangement StartingOrder();

// What one cutting step hands on to the next: what is left to cut and the totals so far.
struct PassProgress {
    CutRows<int32_t> CutQty;
    int32_t PiecesLeft = 0;
    float PercentCut = 0;
    std::array<double, 18> totals{};  // the accumulators of both Methods
    StdRows<float> BarsUsedA;
    StdRows<float> BarsUsedB;

    static PassProgress Of(const Module1& m);
    void RestoreInto(Module1& m) const;
    // The figure that the Advanced search compares (SearchFigure) among these totals.
    double Figure(const Module1& m) const;
    bool operator==(const PassProgress&) const = default;
};

// The progress at the end of the loop, and the tables of its last step.
struct PassOutcome {
    PassProgress progress;
    StdRows<int32_t> PatternBars;
    Table<int32_t, MaxStdLengths, MaxCutLengths> PatternPieces;
    Table<float, MaxStdLengths, 2> RankMat;
    Table<float, MaxStdLengths, 2> RankMon;
    uint8_t EngineStd = 0;
    float ChosenStd = 0;
    float ChosenWaste = 0;
    int32_t ChosenBars = 0;
    // The pass stopped before its end, once it could no longer beat the passes before it: the
    // progress is that of the step where it stopped, and nothing else is set.
    bool beaten = false;

    static PassOutcome Of(const Module1& m);
    void RestoreInto(Module1& m) const;
    bool operator==(const PassOutcome&) const = default;
};

// Sets `work`, a copy of `start`, to the beginning of a pass in `arrangement` of start's rows:
// the whole cutting list, no totals, nothing cut.
void StartPass(Module1& work, const Module1& start, const Arrangement& arrangement);

// Runs the cutting loop of the pass that `work` is in to its end.
PassOutcome FinishPass(Module1& work);

}  // namespace brennik
