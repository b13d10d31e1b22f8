#include "engine/pass_bound.h"

#include <algorithm>
#include <cmath>

#include "engine/find_best_pattern.h"

namespace brennik {

namespace {

// Each step adds its cost rounded to cents, half a cent below the exact one at most (and a
// trace more for the double nearest to the cents). Spread over the step's bars, at least one,
// this much off each bar's price covers it.
constexpr double Rounding = 0.00501;
// Totals are rounded to cents that closely only well below this figure; passes that have to
// beat a dearer one are not bounded.
constexpr double ExactFigures = 1e9;
// A bound a little lower than the products of doubles, so that their own rounding never lifts
// it above the true one.
constexpr double Slack = 1 - 1e-9;

}  // namespace

PassBound::PassBound(const Module1& start) : start_(start) {
    int64_t longestBar = 0;
    double rate = INFINITY;
    for (int row = 1; row <= start.StdCount; ++row) {
        const auto bar = static_cast<int64_t>(Scale100(start.StdLength(row)));
        longestBar = std::max(longestBar, bar);
        rate = std::min(rate, (start.StdPrice(row) - Rounding) / static_cast<double>(bar));
    }
    // A pass stops at a length that no bar holds, with its pieces and the rest left over.
    bool everyPieceFits = true;
    for (int i = 1; i <= start.CutCount; ++i) {
        hundredths_[i - 1] = static_cast<int64_t>(Scale100(start.MasterCutLength(i)));
        everyPieceFits = everyPieceFits && hundredths_[i - 1] <= longestBar;
    }
    if (SearchFigureIsCost(start) && everyPieceFits && rate > 0 && rate < INFINITY) {
        leastRate_ = rate * Slack;
    }
}

bool PassBound::CannotBeat(const PassProgress& progress, double toBeat) const {
    return toBeat < ExactFigures && Least(progress) >= toBeat;
}

double PassBound::Least(const PassProgress& progress) const {
    const double figure = progress.Figure(start_);
    if (leastRate_ == 0) {
        return figure;
    }
    int64_t wanted = 0;
    for (int i = 1; i <= start_.CutCount; ++i) {
        wanted += std::max(progress.CutQty(i), 0) * hundredths_[i - 1];
    }
    return figure + static_cast<double>(wanted) * leastRate_;
}

}  // namespace brennik
