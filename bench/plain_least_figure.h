// The least figure of a cutting problem's linear relaxation for the benchmark to hold the
// optimiser's against: column generation whose pricing is a dynamic programme over every length
// a bar can be filled to, in steps of the common divisor of the pieces.
#pragma once

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <optional>
#include <vector>

#include "plain_bound.h"

namespace brennik::testing {

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
