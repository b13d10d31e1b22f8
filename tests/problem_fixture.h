// Test support: puts a problem into the shared block the way the intake and the ordering leave
// it, and drives whole cutting passes while recording each step.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/cutting_pass.h"
#include "surface/memory_surface.h"
#include "state/module1.h"
#include "state/number_texts.h"
#include "state/ordering.h"

namespace brennik::testing {

struct Cut {
    double length;
    int32_t quantity;
};

struct Problem {
    std::vector<double> stdLengths;
    std::vector<double> prices;  // may be shorter than stdLengths; missing prices are 0
    std::vector<Cut> cuts;
    bool methodA = false;
};

// Fills the rows in entry order with two-decimal values, orders and classifies them, resets
// the totals and counts the pieces, ready for the first cutting step.
inline void LoadProblem(Module1& m, const Problem& problem, MemorySurface& surface) {
    m = Module1{};
    for (std::size_t r = 0; r < problem.stdLengths.size(); ++r) {
        m.StdLength(static_cast<int>(r + 1)) =
            static_cast<float>(RoundEven2(problem.stdLengths[r]));
    }
    for (std::size_t r = 0; r < problem.prices.size(); ++r) {
        m.StdPrice(static_cast<int>(r + 1)) = static_cast<float>(RoundEven2(problem.prices[r]));
    }
    for (std::size_t i = 0; i < problem.cuts.size(); ++i) {
        m.CutLength(static_cast<int>(i + 1)) =
            static_cast<float>(RoundEven2(problem.cuts[i].length));
        m.CutQty(static_cast<int>(i + 1)) = problem.cuts[i].quantity;
    }
    surface.SetValue({problem.methodA ? Ctl::Option1 : Ctl::Option2}, true);
    SortStdLengths(m);
    SortCutLengths(m);
    ClassifyProblem(m, surface);
    ResetPassTotals(m);
    CountTotalPieces(m);
    m.PiecesLeft = m.TotalPieces;
}

struct Step {
    float stdLength;
    int32_t bars;
    std::vector<std::pair<float, int32_t>> pieces;  // (cutting length, pieces per bar)
    float waste;
};

// Runs cutting steps until nothing is left or no row has a pattern.
inline std::vector<Step> RunWholePass(Module1& m) {
    std::vector<Step> steps;
    while (m.PiecesLeft > 0 && CutNextStep(m)) {
        const int row = static_cast<int>(m.ChosenStd);
        Step step{m.StdLength(row), m.ChosenBars, {}, m.ChosenWaste};
        for (int i = 1; i <= m.CutCount; ++i) {
            if (m.PatternPieces(row, i) > 0) {
                step.pieces.emplace_back(m.CutLength(i), m.PatternPieces(row, i));
            }
        }
        steps.push_back(step);
    }
    return steps;
}

}  // namespace brennik::testing
