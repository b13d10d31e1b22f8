// How good a plan is and a cheaper one: the least cost and the least material that any plan of
// the problem could reach (the optimum of the linear relaxation: a lower bound for every
// whole-number plan), and a whole-number plan that cuts every piece exactly as often as asked
// and is never worse than the plan it is given to beat.
#pragma once

#include <atomic>
#include <optional>
#include <vector>

#include "optimise/cutting_plan.h"

namespace brennik {

struct PlanSearchOptions {
    double timeLimit = 10;  // seconds for the whole search
    const std::atomic<bool>* cancel = nullptr;
    bool findPlan = true;  // false: the least figures only
};

struct PlanSearchOutcome {
    // In the units of the entries, to the cent. The cost only when every standard length has a
    // price. A figure the search had no time for is missing.
    std::optional<double> leastCost;
    std::optional<double> leastMaterial;
    // The least figures are the optimum of the relaxation. When not, each is still a proven
    // lower bound, only perhaps below the optimum.
    bool boundProven = false;
    Plan plan;                  // the best plan: the given one unless a better one was found
    bool improved = false;      // `plan` is better than the given one
    bool stoppedEarly = false;  // the time limit or a cancel ended the search
    bool cancelled = false;
    // The price of one piece of each cutting row at the end of each relaxation, for checking.
    std::vector<double> costDuals;
    std::vector<double> materialDuals;
};

// The figure that the problem's Method keeps small, of a plan, in the units of the entries.
double MethodFigure(const CuttingProblem& problem, const Plan& plan);

// The least that figure could be, when the search got as far; and how far above it a plan lies,
// in percent.
std::optional<double> LeastMethodFigure(const CuttingProblem& problem,
                                        const PlanSearchOutcome& outcome);
std::optional<double> PercentAboveLeast(const CuttingProblem& problem, const Plan& plan,
                                        const PlanSearchOutcome& outcome);

// `toBeat` must cut every piece of `problem` exactly (CutsExactly).
PlanSearchOutcome SearchCheaperPlan(const CuttingProblem& problem, const Plan& toBeat,
                                    const PlanSearchOptions& options);

}  // namespace brennik
