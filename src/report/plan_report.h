// A plan found after a press, written as a finished report in the layout of last.sol: the same
// head, one cutting line per line of the plan, the groups by standard length, the foot with the
// press's method marked "+", and the waste summary and reference note as the press had them.
#pragma once

#include <string>

#include "files/file_system.h"
#include "optimise/cutting_plan.h"
#include "report/clock.h"
#include "state/module1.h"

namespace brennik {

// `m` is the block the press left (its problem of ProblemOfPress, its Method, settings and
// reference), with Advanced as it stood while the press wrote last.sol. Every line of the plan is
// applied as a cutting step and written as its line; afterwards `m` holds the plan's figures as a
// pass would (totals, bars bought). False when the report could not be written; the previous
// `target` then stays as it was.
bool WritePlanReport(Module1& m, const CuttingProblem& problem, const Plan& plan, FileSystem& files,
                     const Clock& clock, const std::string& target);

}  // namespace brennik
