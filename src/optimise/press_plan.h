// The problem of the press just made and the plan it wrote, as a cutting problem and plan: the
// standard rows as the press left them (longest first), the master cutting rows, and the
// cutting lines of its last pass.
#pragma once

#include "optimise/cutting_plan.h"
#include "state/module1.h"

namespace brennik {

// Method A keeps the cost small, Method B the material.
CuttingProblem ProblemOfPress(const Module1& m);

// Each line goes to the standard row of its length and price.
Plan PlanOfPress(const Module1& m, const CuttingProblem& problem);

}  // namespace brennik
