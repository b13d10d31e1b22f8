// The least figure with which a pass of the Advanced search could still end, from what it has
// cut so far: a pass whose least figure already reaches the one it has to beat need not be run
// to its end. Totals only grow as bars are cut, and every piece still wanted takes up its length
// of some bar, bought at no less than the lowest price per length.
#pragma once

#include <array>
#include <cstdint>

#include "engine/pass_outcome.h"
#include "state/module1.h"

namespace brennik {

class PassBound {
public:
    // `start` is classified, with its master list set.
    explicit PassBound(const Module1& start);

    // No pass that has come to `progress` ends with a lower figure (SearchFigure) than this.
    double Least(const PassProgress& progress) const;
    // Whether a pass that has come to `progress` cannot end below `toBeat`.
    bool CannotBeat(const PassProgress& progress, double toBeat) const;

private:
    const Module1& start_;
    // What a hundredth of bar costs at the least, a little below the lowest price per length
    // so that the rounding of each step's cost to cents stays above it; 0 when the figure is
    // not a cost, or when a price is so low that it might not.
    double leastRate_ = 0;
    std::array<int64_t, MaxCutLengths> hundredths_{};  // the cutting lengths
};

}  // namespace brennik
