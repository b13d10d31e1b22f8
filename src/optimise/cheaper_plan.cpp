#include "optimise/cheaper_plan.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "optimise/column_generation.h"
#include "optimise/rounding.h"

namespace brennik {

namespace {

// Shares of the time limit: each relaxation at most, and CBC at most, as the rounding is near
// the bound already and what CBC finds after the first moments is seldom worth a user's wait.
constexpr double OwnRelaxationShare = 0.5;
constexpr double OtherRelaxationShare = 0.2;
constexpr double WholeBarsShare = 0.025;

double ToCents(double value) {
    return std::round(value * 100.0) / 100.0;
}

// A relaxation that was solved, or got far enough to bound its figure.
bool Bounded(const Relaxation& relaxation) {
    return relaxation.proven || relaxation.lowerBound > 0;
}

double Figure(const Relaxation& relaxation) {
    return ToCents(relaxation.proven ? relaxation.value : relaxation.lowerBound);
}

// The figure of a plan by the problem's objective, in hundredths.
int64_t ObjectiveOf(const CuttingProblem& problem, const Plan& plan) {
    return problem.objective == Objective::Cost ? PlanCost(problem, plan)
                                                : PlanMaterial(problem, plan);
}

// No plan can beat one whose figure lies less than a step of the bars' figures above the bound.
bool ReachesBound(const CuttingProblem& problem, const Plan& plan, double bound) {
    int64_t step = 0;
    for (const StockLength& bar : problem.stock) {
        step = std::gcd(step, problem.objective == Objective::Cost ? bar.price100 : bar.length100);
    }
    return static_cast<double>(ObjectiveOf(problem, plan) - step) < bound * 100.0 - 1e-6;
}

// Lines of each standard row together, rows in their order, and within a row the ways of
// cutting that take the most of the longest lengths first, as the cutting pass goes.
void Order(Plan& plan) {
    std::stable_sort(plan.begin(), plan.end(), [](const PlanLine& a, const PlanLine& b) {
        if (a.stock != b.stock) {
            return a.stock < b.stock;
        }
        return a.pieces > b.pieces;
    });
}

bool FitsSomeBar(const CuttingProblem& problem) {
    for (const WantedPiece& piece : problem.pieces) {
        const bool fits = std::any_of(
            problem.stock.begin(), problem.stock.end(),
            [&piece](const StockLength& bar) { return piece.length100 <= bar.length100; });
        if (piece.quantity < 0 || piece.length100 <= 0 || (piece.quantity > 0 && !fits)) {
            return false;
        }
    }
    return !problem.stock.empty() &&
           std::all_of(problem.stock.begin(), problem.stock.end(),
                       [](const StockLength& bar) { return bar.length100 > 0; });
}

}  // namespace

PlanSearchOutcome SearchCheaperPlan(const CuttingProblem& problem, const Plan& toBeat,
                                    const PlanSearchOptions& options) {
    PlanSearchOutcome outcome;
    outcome.plan = toBeat;
    if (!FitsSomeBar(problem)) {
        return outcome;
    }
    if (std::all_of(problem.pieces.begin(), problem.pieces.end(),
                    [](const WantedPiece& piece) { return piece.quantity == 0; })) {
        // Nothing to cut: nothing to buy.
        outcome.leastCost = problem.allPriced ? std::optional<double>(0) : std::nullopt;
        outcome.leastMaterial = 0;
        outcome.boundProven = true;
        return outcome;
    }
    const Deadline deadline(options.timeLimit, options.cancel);
    const Objective other =
        problem.objective == Objective::Cost ? Objective::Material : Objective::Cost;
    const bool otherWanted = other == Objective::Material || problem.allPriced;

    // The relaxation of the Method's own figure first: its columns make the plan. The ways of
    // cutting of the plan to beat start it, so that its LP is never worse than that plan, even
    // when the time runs out before it is solved. Each relaxation has a share of the time, so
    // that a problem whose pricing is slow still gets both least figures and a plan.
    MasterLp master(problem, problem.objective);
    for (const PlanLine& line : toBeat) {
        master.AddColumn(line.stock, line.pieces);
    }
    const Relaxation own = master.Solve(deadline.Within(options.timeLimit * OwnRelaxationShare));

    Relaxation second;
    if (otherWanted && !deadline.Passed()) {
        MasterLp otherMaster(problem, other);
        second = otherMaster.Solve(deadline.Within(options.timeLimit * OtherRelaxationShare));
    }

    if (options.findPlan && !deadline.Passed()) {
        std::vector<int64_t> bars = RoundResidually(problem, master, deadline);
        Plan rounded = PlanOfColumns(problem, master, bars);
        if (!ReachesBound(problem, rounded, own.lowerBound)) {
            const Deadline share = deadline.Within(options.timeLimit * WholeBarsShare);
            bars = SearchWholeBars(problem, master, bars, share);
            Plan searched = PlanOfColumns(problem, master, bars);
            if (Better(problem, searched, rounded)) {
                rounded = std::move(searched);
            }
        }
        Order(rounded);
        if (CutsExactly(problem, rounded) && Better(problem, rounded, toBeat)) {
            outcome.plan = std::move(rounded);
            outcome.improved = true;
        }
    }

    const Relaxation& cost = problem.objective == Objective::Cost ? own : second;
    const Relaxation& material = problem.objective == Objective::Cost ? second : own;
    if (problem.allPriced && Bounded(cost)) {
        outcome.leastCost = Figure(cost);
        outcome.costDuals = cost.duals;
    }
    if (Bounded(material)) {
        outcome.leastMaterial = Figure(material);
        outcome.materialDuals = material.duals;
    }
    outcome.boundProven = own.proven && (!otherWanted || second.proven);
    outcome.cancelled = deadline.Cancelled();
    outcome.stoppedEarly = deadline.Passed() || !outcome.boundProven;
    return outcome;
}

double MethodFigure(const CuttingProblem& problem, const Plan& plan) {
    return static_cast<double>(ObjectiveOf(problem, plan)) / 100.0;
}

std::optional<double> LeastMethodFigure(const CuttingProblem& problem,
                                        const PlanSearchOutcome& outcome) {
    return problem.objective == Objective::Cost ? outcome.leastCost : outcome.leastMaterial;
}

std::optional<double> PercentAboveLeast(const CuttingProblem& problem, const Plan& plan,
                                        const PlanSearchOutcome& outcome) {
    const std::optional<double> least = LeastMethodFigure(problem, outcome);
    if (!least || *least <= 0) {
        return std::nullopt;
    }
    return (MethodFigure(problem, plan) - *least) / *least * 100.0;
}

}  // namespace brennik
