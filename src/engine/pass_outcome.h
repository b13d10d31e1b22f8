// What the cutting loop of a pass leaves in the shared block, kept apart from it. A pass of the
// Advanced search depends on nothing but the arrangement of the standard rows, so the outcome
// of each arrangement can be worked out ahead, on every core, and put back when its attempt
// comes, with the same effect as running the loop there and then.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "state/module1.h"

namespace brennik {

struct PassOutcome {
    StdRows<int32_t> PatternBars;
    Table<int32_t, MaxStdLengths, MaxCutLengths> PatternPieces;
    Table<float, MaxStdLengths, 2> RankMat;
    Table<float, MaxStdLengths, 2> RankMon;
    uint8_t EngineStd = 0;
    float ChosenStd = 0;
    float ChosenWaste = 0;
    int32_t ChosenBars = 0;
    CutRows<int32_t> CutQty;
    int32_t PiecesLeft = 0;
    float PercentCut = 0;
    std::array<double, 18> totals{};  // the accumulators of both Methods
    StdRows<float> BarsUsedA;
    StdRows<float> BarsUsedB;

    static PassOutcome Of(const Module1& m);
    void RestoreInto(Module1& m) const;
};

// An arrangement as the rows of the original order that stand in rows 1 to 6.
using Arrangement = std::array<uint8_t, MaxStdLengths>;

// The cutting loop of a pass in each arrangement, run on copies of `m` (classified, with its
// master list and TotalPieces set) in as many threads as the machine has cores.
std::map<Arrangement, PassOutcome> OutcomesOf(const Module1& m,
                                              const std::vector<Arrangement>& arrangements);

}  // namespace brennik
