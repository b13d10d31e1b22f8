// The least figure of a small cutting problem's linear relaxation, worked out apart from the
// optimiser to hold its bound against: every pattern there is, in one LP.
#pragma once

#include <coin/ClpSimplex.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "optimise/cutting_plan.h"

namespace brennik::testing {

// Patterns as (standard row, pieces of each cutting row in one bar).
using Patterns = std::vector<std::pair<int, std::vector<int64_t>>>;

inline double PlainBarFigure(const CuttingProblem& problem, Objective objective, int s) {
    const StockLength& bar = problem.stock[s];
    return static_cast<double>(objective == Objective::Cost ? bar.price100 : bar.length100) / 100;
}

// Every pattern of every standard row: pieces of each row up to its quantity that fit the bar,
// with at least one piece. Only for problems small enough to list them.
inline Patterns EveryPattern(const CuttingProblem& problem) {
    Patterns patterns;
    std::vector<int64_t> counts(problem.pieces.size(), 0);
    for (int s = 0; s < static_cast<int>(problem.stock.size()); ++s) {
        const std::function<void(std::size_t, int64_t)> walk = [&](std::size_t j, int64_t room) {
            if (j == counts.size()) {
                if (std::any_of(counts.begin(), counts.end(), [](int64_t c) { return c > 0; })) {
                    patterns.emplace_back(s, counts);
                }
                return;
            }
            const WantedPiece& piece = problem.pieces[j];
            for (int64_t c = 0; c <= piece.quantity && c * piece.length100 <= room; ++c) {
                counts[j] = c;
                walk(j + 1, room - c * piece.length100);
            }
            counts[j] = 0;
        };
        walk(0, problem.stock[s].length100);
    }
    return patterns;
}

// The LP over the given patterns: its optimum and the duals of its rows.
struct PlainLp {
    double value = 0;
    std::vector<double> duals;
};

inline PlainLp SolvePlainLp(const CuttingProblem& problem, Objective objective,
                            const Patterns& patterns) {
    ClpSimplex lp;
    lp.setLogLevel(0);
    const auto rows = static_cast<int>(problem.pieces.size());
    lp.resize(rows, 0);
    for (int j = 0; j < rows; ++j) {
        lp.setRowBounds(j, static_cast<double>(problem.pieces[j].quantity), COIN_DBL_MAX);
    }
    for (const auto& [s, pieces] : patterns) {
        std::vector<int> at;
        std::vector<double> counts;
        for (int j = 0; j < rows; ++j) {
            if (pieces[j] > 0) {
                at.push_back(j);
                counts.push_back(static_cast<double>(pieces[j]));
            }
        }
        lp.addColumn(static_cast<int>(at.size()), at.data(), counts.data(), 0, COIN_DBL_MAX,
                     PlainBarFigure(problem, objective, s));
    }
    lp.primal();
    PlainLp result{lp.objectiveValue(), {}};
    result.duals.assign(lp.dualRowSolution(), lp.dualRowSolution() + rows);
    return result;
}

}  // namespace brennik::testing
