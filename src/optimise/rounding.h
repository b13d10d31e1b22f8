// Whole-number plans from the LP: residual rounding, and a branch and bound (COIN-OR CBC) over
// the ways of cutting the column generation found. Both give bars per column of the master LP,
// which cover every piece at least as often as asked.
#pragma once

#include <cstdint>
#include <vector>

#include "optimise/column_generation.h"
#include "optimise/cutting_plan.h"
#include "optimise/deadline.h"

namespace brennik {

// Bars of each column of `master`. The LP's columns are bought as often as they are wholly
// taken; of a solution that takes none wholly, one bar of the column taken most; then the LP is
// solved again for what is still wanted, and so on. When the deadline passes first, what is
// still wanted is cut each length on its own. The master's demand is left at what was wanted
// last, and new columns are added to it.
std::vector<int64_t> RoundResidually(const CuttingProblem& problem, MasterLp& master,
                                     const Deadline& deadline);

// The plan of bars per column: lines in column order, trimmed to the quantities.
Plan PlanOfColumns(const CuttingProblem& problem, const MasterLp& master,
                   const std::vector<int64_t>& bars);

// A whole-number program over the master's columns, started from `start` (bars per column),
// searched by CBC until it is proven or the deadline passes. Returns the best bars per column it
// found, `start` when it found nothing better.
std::vector<int64_t> SearchWholeBars(const CuttingProblem& problem, const MasterLp& master,
                                     const std::vector<int64_t>& start, const Deadline& deadline);

}  // namespace brennik
