#include "optimise/cutting_plan.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "engine/find_best_pattern.h"

namespace brennik {

StockLength Stock(float length, float price) {
    return {length, price, static_cast<int64_t>(Scale100(length)),
            static_cast<int64_t>(Scale100(price))};
}

WantedPiece Piece(float length, int64_t quantity) {
    return {length, static_cast<int64_t>(Scale100(length)), quantity};
}

CuttingProblem MakeProblem(const std::vector<StockLength>& stock,
                           const std::vector<WantedPiece>& pieces, Objective objective) {
    CuttingProblem problem{stock, pieces, objective, !stock.empty()};
    for (const StockLength& s : stock) {
        problem.allPriced = problem.allPriced && s.price100 > 0;
    }
    return problem;
}

int64_t PlanCost(const CuttingProblem& problem, const Plan& plan) {
    int64_t cost = 0;
    for (const PlanLine& line : plan) {
        cost += line.bars * problem.stock[line.stock].price100;
    }
    return cost;
}

int64_t PlanMaterial(const CuttingProblem& problem, const Plan& plan) {
    int64_t material = 0;
    for (const PlanLine& line : plan) {
        material += line.bars * problem.stock[line.stock].length100;
    }
    return material;
}

int64_t LineWaste(const CuttingProblem& problem, const PlanLine& line) {
    int64_t left = problem.stock[line.stock].length100;
    for (std::size_t j = 0; j < line.pieces.size(); ++j) {
        left -= line.pieces[j] * problem.pieces[j].length100;
    }
    return left;
}

bool Better(const CuttingProblem& problem, const Plan& a, const Plan& b) {
    const auto key = [&problem](const Plan& plan) {
        const int64_t cost = PlanCost(problem, plan);
        const int64_t material = PlanMaterial(problem, plan);
        return problem.objective == Objective::Cost ? std::make_tuple(cost, material)
                                                    : std::make_tuple(material, cost);
    };
    return key(a) < key(b);
}

bool CutsExactly(const CuttingProblem& problem, const Plan& plan) {
    std::vector<int64_t> cut(problem.pieces.size(), 0);
    for (const PlanLine& line : plan) {
        if (line.stock < 0 || line.stock >= static_cast<int>(problem.stock.size()) ||
            line.bars < 1 || line.pieces.size() != cut.size() || LineWaste(problem, line) < 0) {
            return false;
        }
        int64_t inBar = 0;
        for (std::size_t j = 0; j < cut.size(); ++j) {
            if (line.pieces[j] < 0) {
                return false;
            }
            inBar += line.pieces[j];
            cut[j] += line.bars * line.pieces[j];
        }
        if (inBar == 0) {
            return false;
        }
    }
    for (std::size_t j = 0; j < cut.size(); ++j) {
        if (cut[j] != problem.pieces[j].quantity) {
            return false;
        }
    }
    return true;
}

Plan TrimmedToQuantities(const CuttingProblem& problem, Plan covering) {
    for (std::size_t j = 0; j < problem.pieces.size(); ++j) {
        int64_t surplus = -problem.pieces[j].quantity;
        for (const PlanLine& line : covering) {
            surplus += line.bars * line.pieces[j];
        }
        // The surplus comes out of the last lines first; a line of which only some bars lose
        // pieces splits into the bars that keep all, one bar that keeps some, and the rest.
        for (std::size_t k = covering.size(); k-- > 0 && surplus > 0;) {
            const int64_t each = covering[k].pieces[j];
            if (each == 0) {
                continue;
            }
            if (surplus >= each * covering[k].bars) {
                surplus -= each * covering[k].bars;
                covering[k].pieces[j] = 0;
                continue;
            }
            const int64_t emptied = surplus / each;
            const int64_t part = surplus % each;
            PlanLine line = covering[k];
            covering[k].bars -= emptied + (part > 0 ? 1 : 0);
            if (emptied > 0) {
                PlanLine none = line;
                none.bars = emptied;
                none.pieces[j] = 0;
                covering.push_back(none);
            }
            if (part > 0) {
                PlanLine some = line;
                some.bars = 1;
                some.pieces[j] = each - part;
                covering.push_back(some);
            }
            surplus = 0;
        }
    }
    // Merge equal ways of cutting, keeping the order in which each first appears.
    Plan exact;
    std::map<std::pair<int, std::vector<int64_t>>, std::size_t> seen;
    for (const PlanLine& line : covering) {
        const bool empty = std::all_of(line.pieces.begin(), line.pieces.end(),
                                       [](int64_t pieces) { return pieces == 0; });
        if (line.bars <= 0 || empty) {
            continue;
        }
        const auto [at, added] = seen.try_emplace({line.stock, line.pieces}, exact.size());
        if (added) {
            exact.push_back(line);
        } else {
            exact[at->second].bars += line.bars;
        }
    }
    return exact;
}

}  // namespace brennik
