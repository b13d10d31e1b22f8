// Test support: puts a problem into the shared block the way the intake and the ordering leave
// it, and drives whole cutting passes while recording each step.
#pragma once

#include <cstdint>
#include <tuple>
#include <utility>
#include <vector>

#include "engine/cutting_pass.h"
#include "state/module1.h"
#include "state/number_texts.h"
#include "state/ordering.h"
#include "surface/memory_surface.h"

namespace brennik::testing {

using Cut = std::pair<double, int32_t>;  // (length, quantity)

struct Problem {
    std::vector<double> stdLengths;
    std::vector<double> prices;  // may be shorter than stdLengths; missing prices are 0
    std::vector<Cut> cuts;
    bool methodA = false;
};

// A block with the rows filled in entry order with two-decimal values, ordered and classified,
// the totals reset and the pieces counted, ready for the first cutting step.
inline Module1 LoadProblem(const Problem& problem) {
    Module1 m;
    MemorySurface surface;
    for (int r = 1; r <= std::ssize(problem.stdLengths); ++r) {
        m.StdLength(r) = static_cast<float>(RoundEven2(problem.stdLengths[r - 1]));
    }
    for (int r = 1; r <= std::ssize(problem.prices); ++r) {
        m.StdPrice(r) = static_cast<float>(RoundEven2(problem.prices[r - 1]));
    }
    for (int i = 1; i <= std::ssize(problem.cuts); ++i) {
        m.CutLength(i) = static_cast<float>(RoundEven2(problem.cuts[i - 1].first));
        m.CutQty(i) = problem.cuts[i - 1].second;
    }
    surface.SetValue({problem.methodA ? Ctl::Option1 : Ctl::Option2}, true);
    SortStdLengths(m);
    SortCutLengths(m);
    ClassifyProblem(m, surface);
    ResetPassTotals(m);
    CountTotalPieces(m);
    m.PiecesLeft = m.TotalPieces;
    return m;
}

using Pieces = std::vector<std::pair<float, int32_t>>;  // (cutting length, pieces per bar)
// One cutting step: the standard length, the bars cut, their pattern and the waste of each.
using Step = std::tuple<float, int32_t, Pieces, float>;

// Runs cutting steps until nothing is left or no row has a pattern.
inline std::vector<Step> RunWholePass(Module1& m) {
    std::vector<Step> steps;
    while (m.PiecesLeft > 0 && CutNextStep(m)) {
        const int row = static_cast<int>(m.ChosenStd);
        Pieces pieces;
        for (int i = 1; i <= m.CutCount; ++i) {
            if (m.PatternPieces(row, i) > 0) {
                pieces.emplace_back(m.CutLength(i), m.PatternPieces(row, i));
            }
        }
        steps.emplace_back(m.StdLength(row), m.ChosenBars, pieces, m.ChosenWaste);
    }
    return steps;
}

}  // namespace brennik::testing
