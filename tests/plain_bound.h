// The least figure of a cutting problem's linear relaxation, worked out apart from the optimiser,
// to hold its bound against: column generation whose pricing is a dynamic programme over every
// length a bar can be filled to, in steps of the common divisor of the pieces; or, for small
// problems, every pattern there is in one LP.
#pragma once

#include <coin/ClpSimplex.hpp>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <numeric>
#include <optional>
#include <vector>

#include "optimise/cutting_plan.h"

namespace brennik::testing {

inline double PlainBarFigure(const CuttingProblem& problem, Objective objective, int s) {
    const StockLength& bar = problem.stock[s];
    return static_cast<double>(objective == Objective::Cost ? bar.price100 : bar.length100) / 100;
}

// Every pattern of every standard row: pieces of each row up to its quantity that fit the bar,
// with at least one piece. Calls `visit(stock, pieces)` for each.
inline void ForEveryPattern(const CuttingProblem& problem,
                            const std::function<void(int, const std::vector<int64_t>&)>& visit) {
    const std::size_t n = problem.pieces.size();
    std::vector<int64_t> counts(n, 0);
    for (int s = 0; s < static_cast<int>(problem.stock.size()); ++s) {
        const std::function<void(std::size_t, int64_t, bool)> walk = [&](std::size_t j,
                                                                         int64_t room, bool any) {
            if (j == n) {
                if (any) {
                    visit(s, counts);
                }
                return;
            }
            const WantedPiece& piece = problem.pieces[j];
            for (int64_t c = 0; c <= piece.quantity && c * piece.length100 <= room; ++c) {
                counts[j] = c;
                walk(j + 1, room - c * piece.length100, any || c > 0);
            }
            counts[j] = 0;
        };
        walk(0, problem.stock[s].length100, false);
    }
}

// The LP over the given patterns: its optimum and the duals of its rows.
struct PlainLp {
    double value = 0;
    std::vector<double> duals;
};

inline PlainLp SolvePlainLp(const CuttingProblem& problem, Objective objective,
                            const std::vector<std::pair<int, std::vector<int64_t>>>& patterns) {
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

// The LP over every pattern there is: only for problems small enough to list them.
inline PlainLp EveryPatternLp(const CuttingProblem& problem, Objective objective) {
    std::vector<std::pair<int, std::vector<int64_t>>> patterns;
    ForEveryPattern(problem, [&](int s, const std::vector<int64_t>& pieces) {
        patterns.emplace_back(s, pieces);
    });
    return SolvePlainLp(problem, objective, patterns);
}

// The most valuable filling of a bar at the given piece values, by a table over every length
// the bar can be filled to. Nothing when the table would exceed `maxCells` cells times items.
inline std::optional<std::vector<int64_t>> PlainBestFilling(const CuttingProblem& problem, int s,
                                                            const std::vector<double>& values,
                                                            int64_t maxCells) {
    int64_t step = 0;
    for (const WantedPiece& piece : problem.pieces) {
        step = std::gcd(step, piece.length100);
    }
    const int64_t capacity = problem.stock[s].length100 / step;
    // Each row's pieces split into parts of 1, 2, 4, ... pieces, each taken whole or not.
    struct Part {
        std::size_t row;
        int64_t pieces;
        int64_t weight;
        double value;
    };
    std::vector<Part> parts;
    for (std::size_t j = 0; j < problem.pieces.size(); ++j) {
        const int64_t weight = problem.pieces[j].length100 / step;
        int64_t left = std::min(problem.pieces[j].quantity, capacity / weight);
        for (int64_t chunk = 1; left > 0 && values[j] > 0; chunk *= 2) {
            const int64_t take = std::min(chunk, left);
            parts.push_back({j, take, take * weight, static_cast<double>(take) * values[j]});
            left -= take;
        }
    }
    if (static_cast<double>(capacity + 1) * static_cast<double>(parts.size() + 1) >
        static_cast<double>(maxCells)) {
        return std::nullopt;
    }
    const auto cells = static_cast<std::size_t>(capacity + 1);
    std::vector<double> best(cells, 0);
    std::vector<std::vector<bool>> taken(parts.size(), std::vector<bool>(cells, false));
    for (std::size_t p = 0; p < parts.size(); ++p) {
        for (int64_t c = capacity; c >= parts[p].weight; --c) {
            const double with = best[c - parts[p].weight] + parts[p].value;
            if (with > best[c]) {
                best[c] = with;
                taken[p][c] = true;
            }
        }
    }
    std::vector<int64_t> counts(problem.pieces.size(), 0);
    int64_t c = capacity;
    for (std::size_t p = parts.size(); p-- > 0;) {
        if (taken[p][c]) {
            counts[parts[p].row] += parts[p].pieces;
            c -= parts[p].weight;
        }
    }
    return counts;
}

// The relaxation's optimum by column generation priced by PlainBestFilling; nothing when a
// bar is too long for its table.
inline std::optional<double> PlainLeastFigure(const CuttingProblem& problem, Objective objective,
                                              int64_t maxCells = 200'000'000) {
    std::vector<std::pair<int, std::vector<int64_t>>> patterns;
    for (int s = 0; s < static_cast<int>(problem.stock.size()); ++s) {
        for (std::size_t j = 0; j < problem.pieces.size(); ++j) {
            std::vector<int64_t> alone(problem.pieces.size(), 0);
            alone[j] = std::min(problem.pieces[j].quantity,
                                problem.stock[s].length100 / problem.pieces[j].length100);
            if (alone[j] > 0) {
                patterns.emplace_back(s, alone);
            }
        }
    }
    for (;;) {
        const PlainLp lp = SolvePlainLp(problem, objective, patterns);
        bool added = false;
        for (int s = 0; s < static_cast<int>(problem.stock.size()); ++s) {
            const auto filling = PlainBestFilling(problem, s, lp.duals, maxCells);
            if (!filling) {
                return std::nullopt;
            }
            double value = 0;
            for (std::size_t j = 0; j < filling->size(); ++j) {
                value += static_cast<double>((*filling)[j]) * lp.duals[j];
            }
            const double figure = PlainBarFigure(problem, objective, s);
            const bool known = std::find(patterns.begin(), patterns.end(),
                                         std::make_pair(s, *filling)) != patterns.end();
            if (value > figure * (1 + 1e-9) && !known) {
                patterns.emplace_back(s, *filling);
                added = true;
            }
        }
        if (!added) {
            return lp.value;
        }
    }
}

}  // namespace brennik::testing
